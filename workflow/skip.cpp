// SPDX-License-Identifier: GPL-3.0-or-later
// [Skip]: leaves out a standard, a copro, the blank or a sample; -99 marks what was not read.
#include "core/captions.hpp"
#include "core/numbers.hpp"
#include "core/places.hpp"
#include "core/start_button.hpp"
#include "core/steps.hpp"
#include "core/text.hpp"
#include "workflow/log.hpp"
#include "workflow/run_controls.hpp"

namespace kelp {

namespace {

constexpr const char* kNotRead = "-99.00";
constexpr const char* kSampleNotRead = "-99.000";

bool WasRead(const std::string& box) { return !Trim(box).empty() && box != "0" && Val(box) > -99; }

// A value that was read stays: end values are left out without touching the begin values.
void MarkBoxes(Kelp& kelp, int first, int last) {
  std::string marked;
  for (int box = first; box <= last; ++box) {
    if (WasRead(kelp.frmAcquire.txtBlank[box].Text)) continue;
    PutValue(kelp, {.Box = box}, kNotRead, {.Way = How::Skipped});
    marked += (marked.empty() ? "" : ", ") + PlaceName(kelp, {.Box = box});
  }
  SetStatus(kelp, marked.empty() ? "Skipped. What was read stays."
                                 : "Skipped: " + marked + " " + kNotRead + ". Ctrl+Z takes it back.");
}

void GoToSamples(Kelp& kelp) { SetButton(kelp, {.Caption = captions::kLoadStationSample}); }

void SkipCopro(Kelp& kelp) {
  const CaptionRow& row = ButtonRow(kelp);
  // The prompt "Load Copro 1" names no copro: it leaves out both.
  const bool named = row.Does == Phase::Load && std::string_view(row.Caption).ends_with('}');
  if (named && row.What == Item::Copro1) {
    MarkBoxes(kelp, kBoxCopro1, kBoxCopro1 + 1);
    SetButton(kelp, {.Caption = WithNames(kelp.run, captions::kLoadSecondCopro), .SecondCopro = true});
  } else if (named && row.What == Item::Copro2) {
    MarkBoxes(kelp, kBoxCopro2, kBoxCopro2 + 1);
    GoToSamples(kelp);
  } else {
    SetStatus(kelp, "The rest of the copros is left out.");
    GoToSamples(kelp);
  }
}

// Returns the sample's line for the log.
std::string MarkSample(Kelp& kelp) {
  RunState& run = kelp.run;
  const int row = SampleRow(run);
  const Place rb{.Row = run.SampNum, .Col = kColRb};
  const Place ra{.Row = run.SampNum, .Col = kColRa};
  std::string marked;
  static_cast<void>(run.SampTbl(row, kTblRb));
  for (const Place& place : {rb, ra}) {
    if (HoldsReading(kelp, place)) continue;
    PutValue(kelp, place, kSampleNotRead, {.Way = How::Skipped});
    marked += (marked.empty() ? "" : " and ") + kelp.frmAcquire.datalog.Text(0, place.Col);
  }
  run.SampTbl(row, kTblRb) = ValueAt(kelp, rb);
  run.SampTbl(row, kTblRa) = ValueAt(kelp, ra);
  SetStatus(kelp, "Sample " + std::to_string(int{run.SampNum}) + ", bottle " + BottleOf(kelp, run.SampNum) +
                      (marked.empty()
                           ? " is left; its readings stay."
                           : ": " + marked + " " + kSampleNotRead + " (skipped). Ctrl+Z takes it back."));
  std::string line;
  for (int col = 0; col < StationTable::kCols; ++col) line += "," + run.SampTbl(row, col);
  return line;
}

void RenumberRemainingVials(Kelp& kelp) {
  RunState& run = kelp.run;
  for (int row = run.SampNum + 1; row <= run.SampCount; ++row) {
    ++run.TubeNum;
    kelp.frmAcquire.datalog.Text(row, kColVial) = std::to_string(int{run.TubeNum});
  }
}

void SkipSample(Kelp& kelp) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  const std::string line = MarkSample(kelp);
  run.ReadCount = 0;
  run.ReadIndex = 0;
  run.ReplaceSample = 0;
  form.txtStats[0].Text = "0";
  if (run.SampNum < run.SampCount) {
    ++run.SampNum;
    SetButton(kelp, {.Caption = captions::kLoadNextSample,
                     .Text = "Load the next Station Sample and click [Start] or press <Spacebar>.",
                     .Trace = kTraceRed});
    LogSample(kelp, line, ",*");
  } else {
    SetButton(kelp, {.Caption = captions::kWhatsNext, .Text = "All samples are read.", .Trace = kTraceRed});
    RenumberRemainingVials(kelp);
    LogSample(kelp, line, ",*");
    ShowScreen(kelp, kelp.frmWhatsNext.Form);
  }
}

}  // namespace

void Command5_Click(Kelp& kelp) {
  RunState& run = kelp.run;
  const std::string step = StepUnderWay(kelp);
  if (run.CsvFile.empty()) {
    SetStatus(kelp, "No station is open: there is nothing to skip.");
  } else if (step == steps::kStandard) {
    MarkBoxes(kelp, kBoxLowStandard, kBoxHighStandard + 1);
    GoToSamples(kelp);
  } else if (step == steps::kCopros) {
    SkipCopro(kelp);
  } else if (step == steps::kBlank) {
    MarkBoxes(kelp, kBoxBeginBlank, kBoxEndBlank);
    SetButton(kelp, {.Caption = WithNames(run, captions::kLoadFirstCopro)});
  } else if (run.SampNum > run.SampCount) {
    SetStatus(kelp, "This station has no sample " + std::to_string(int{run.SampNum}) + " to skip.");
  } else if (IsSampleStep(step)) {
    SkipSample(kelp);
  } else {
    SetStatus(kelp, "There is nothing to skip in \"" + step + "\".");
  }
}

}  // namespace kelp
