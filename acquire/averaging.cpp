// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquire/averaging.hpp"

#include <algorithm>
#include <cmath>

#include "acquire/captions.hpp"
#include "acquire/offscale.hpp"
#include "acquire/parser.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

constexpr int kReadsBeforeOffscale = 10;
const std::string kMendLine13 = "; write 10 into configuration line 13 (number of reads to average)";

// The mean of the Read boxes that hold something above 0: what is shown until the buffer is full.
void ShowDisplayAverage(FrmAcquire& form) {
  double sum = 0;
  int count = 0;
  for (const TextBox& box : form.txtRead.Items) {
    const double value = Val(box.Text);
    if (value <= 0) continue;
    sum += value;
    ++count;
  }
  const float average = count > 0 ? static_cast<float>(sum / count) : 0;
  form.txtReading.Text = RawText(average);
}

void StoreRead(RunState& run, float reading) {
  const int slot = run.ReadIndex;
  if (slot >= static_cast<int>(run.RawReads.size()))
    throw RunTimeError(ErrorKind::Subscript, "the number of reads to average is 0" + kMendLine13);
  run.RawReads[static_cast<std::size_t>(slot)] = reading;
  run.ReadsInBuffer = std::min(run.ReadsInBuffer + 1, static_cast<int>(run.RawReads.size()));
  run.ReadIndex = slot == static_cast<int>(run.RawReads.size()) - 1 ? 0 : slot + 1;
}

// The box waits for the eleventh read, by when the value may be saved: mark and status bar say it at once.
void WarnOffscale(Kelp& kelp, float reading) {
  std::string& mark = kelp.frmAcquire.txtStats[1].Problem;
  mark.clear();
  if (!IsOffscale(kelp, reading)) return;
  mark =
      "off scale: above " + Fixed(static_cast<double>(kelp.loop.UpperLimit), 0) + ", dilute the sample 50%";
  SetStatus(kelp, RawText(static_cast<double>(reading)) + " is " + mark + ".");
  if (kelp.run.ReadCount <= kReadsBeforeOffscale) return;
  const Message warning{"Reading is offscale!  Dilute the sample 50% then press OK",
                        "Dilute the sample! Offscale!", Buttons::Ok, Icon::Critical};
  while (kelp.platform.Ask(warning) != Answer::Ok) {
  }
}

// Shows the buffer slots in their order, not the newest reads, and returns the sum of squares.
double ShowSlots(FrmAcquire& form, const std::vector<float>& reads) {
  double sumsq = 0;
  for (std::size_t i = 0; i < reads.size(); ++i) {
    sumsq += static_cast<double>(reads[i]) * static_cast<double>(reads[i]);
    const auto box = static_cast<int>(i < 10 ? i : i - 10);
    if (box < form.txtRead.kCount) form.txtRead[box].Text = RawText(reads[i]);
  }
  return sumsq;
}

void UpdateSd(Kelp& kelp, std::size_t n, double sum, double sumsq) {
  kelp.run.SdIsValid = false;
  const long long product = static_cast<long long>(n) * (static_cast<long long>(n) - 1);
  if (product > 32767)
    throw RunTimeError(ErrorKind::Overflow,
                       "no SD can be had of " + std::to_string(n) + " reads" + kMendLine13);
  if (product == 0) throw RunTimeError(ErrorKind::DivisionByZero, "a single read has no SD" + kMendLine13);
  // The 10 is a constant and not N: with N = 10 this is the sample variance, with any other N it
  // stays as the analysts' criterion was tuned to it.
  const double q = std::abs((10 * sumsq - sum * sum) / static_cast<double>(product));
  if (q > 0) kelp.loop.Sd = std::sqrt(q);
  kelp.run.SdIsValid = true;
}

void FillMeanBox(Kelp& kelp) {
  const int n = kelp.run.ReadsToAverage;
  const int count = kelp.run.ReadCount;
  if (n <= 0 || count % n != 0 || count < n) return;
  auto& means = kelp.frmAcquire.txtMean;
  const int k = count / n;
  if (k >= 21)
    for (int i = 1; i < means.kLast; ++i) means[i].Text = means[i + 1].Text;
  means[std::min(k, means.kLast)].Text = kelp.frmAcquire.txtReading.Text;
}

void UpdateStatistics(Kelp& kelp) {
  RunState& run = kelp.run;
  run.CurReading = 0;
  if (!AverageExists(run)) return;
  double sum = 0;
  for (const float read : run.RawReads) sum += read;
  run.CurReading = static_cast<float>(sum / static_cast<double>(run.RawReads.size()));
  const double sumsq = ShowSlots(kelp.frmAcquire, run.RawReads);
  UpdateSd(kelp, run.RawReads.size(), sum, sumsq);
  kelp.frmAcquire.txtReading.Text = SavedText(run.CurReading);
  FillMeanBox(kelp);
}

}  // namespace

void SizeReadBuffer(RunState& run) {
  run.RawReads.assign(static_cast<std::size_t>(std::max(0, int{run.ReadsToAverage})), 0);
  ClearRawReads(run);
}

bool AverageExists(const RunState& run) {
  if (run.RawReads.empty() || run.ReadsInBuffer < static_cast<int>(run.RawReads.size())) return false;
  return run.RawReads.back() != 0 ||
         std::all_of(run.RawReads.begin(), run.RawReads.end(), [](float read) { return read == 0; });
}

void TakeReading(Kelp& kelp, float reading) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  form.txtStats[1].Text = RawText(reading);
  ShowDisplayAverage(form);
  run.LastRawText = form.txtStats[1].Text;
  run.Chart.AddPoint(ChartValue(reading), ChartDivisor(reading));
  DropRead(kelp.loop.Accumulator);
  const auto start = Left(form.Command1.Caption, 4);
  if (start == "Read" || start == "Save") ++run.ReadCount;
  try {
    StoreRead(run, reading);
    WarnOffscale(kelp, reading);
    UpdateStatistics(kelp);
  } catch (const RunTimeError&) {
    // Told once: at every reading there would be no way to a mended configuration.
    if (!run.ErrorIsTold) {
      run.ErrorIsTold = true;
      throw;
    }
  }
  form.txtStats[2].Text = SdText(kelp.loop.Sd);
  UpdateSaveCaption(kelp);
}

void ClearReadingDisplays(FrmAcquire& form) {
  for (TextBox& box : form.txtStats) box.Text.clear();
  for (TextBox& box : form.txtMean) box.Text.clear();
  for (TextBox& box : form.txtRead) box.Text.clear();
}

}  // namespace kelp
