// SPDX-License-Identifier: GPL-3.0-or-later
// The header boxes of the acquisition screen: what an edit means, and the check when one is left.
#include <array>

#include "core/captions.hpp"
#include "core/date_time.hpp"
#include "core/numbers.hpp"
#include "core/option.hpp"
#include "core/places.hpp"
#include "core/start_button.hpp"
#include "core/steps.hpp"
#include "core/text.hpp"
#include "workflow/run_controls.hpp"

namespace kelp {

namespace {

bool IsNumber(const std::string& text) {
  const auto number = Trim(text);
  if (number.empty()) return false;
  bool digit = false;
  bool point = false;
  for (std::size_t i = 0; i < number.size(); ++i) {
    const char c = number[i];
    if (c >= '0' && c <= '9')
      digit = true;
    else if (c == '.' && !point)
      point = true;
    else if (i != 0 || (c != '-' && c != '+'))
      return false;
  }
  return digit;
}

std::string ProblemOf(const Kelp& kelp, int index) {
  const std::string& text = kelp.frmAcquire.txtStaInfo[index].Text;
  const double value = Val(text);
  switch (index) {
    case kStaF: return IsNumber(text) ? "" : "F is to be a number such as 0.109";
    case kStaTau: return IsNumber(text) && value > 1 ? "" : "tau is to be a number above 1, such as 2.288";
    case kStaFiltrVol:
      return IsNumber(text) && value > 0 ? "" : "the filtered volume is to be a number of mL above 0";
    case kStaExtractVol:
      return IsNumber(text) && value > 0 ? "" : "the extraction volume is to be a number of mL above 0";
    case kStaBottle: return IsNumber(text) ? "" : "the starting bottle is to be a number";
    case kStaVial: return IsNumber(text) ? "" : "the starting vial is to be a number";
    case kStaFiltDate: return DateProblem(text);
    case kStaFiltTime: return TimeProblem(text);
    default: return "";
  }
}

void PromptStepAgain(Kelp& kelp) {
  static constexpr std::array<const char*, 4> kPrompts = {
      "Load Blank then press <spacebar> twice.", "Load Standard then press <spacebar> twice.",
      "Load Copro then press <spacebar> twice.", "Load Sample then press <spacebar> twice."};
  const int selector = kelp.run.StepName == steps::kAdded ? -1 : SelectorOf(kelp.run.StepName);
  if (selector >= 0) SelectOption(kelp.frmAcquire.Option1, selector);
  Say(kelp, selector >= 0 ? kPrompts[static_cast<std::size_t>(selector)] : "Press <spacebar> to restart...");
}

// A starting number that was typed numbers the rows of the station that it was typed in, and ends with it.
void NumberRows(Kelp& kelp, int index, const std::string& text) {
  RunState& run = kelp.run;
  Grid& grid = kelp.frmAcquire.datalog;
  if (run.CsvFile.empty() || !IsNumber(text)) return;
  const long long first = ToInt16(Val(text));
  static_cast<void>(Counter16(first + run.SampCount));
  for (int row = 1; row <= run.SampCount; ++row) {
    const std::string number = std::to_string(first - 1 + row);
    if (index == kStaVial) grid.Text(row, kColVial) = number;
    if (index == kStaBottle) {
      grid.Text(row, kColBottle) = Padded(number, 2, "L", "0");
      run.SampTbl(row + StationTable::kFirstSampleRow - 1, kTblBottle) = grid.Text(row, kColBottle);
    }
  }
  if (index == kStaVial && run.SampCount > 0) run.TubeNum = first - 1 + run.SampCount;
  SetStatus(kelp, std::string(index == kStaVial ? "Vials" : "Bottles") +
                      " of this station are numbered from " + std::to_string(first) + " on.");
}

}  // namespace

void txtStaInfo_Change(Kelp& kelp, int index, const std::string& text) {
  PutValue(kelp, {.Header = index}, text, {.Way = How::Typed});
  if (index == kStaProcNum) {
    kelp.run.ProcNumEdited = true;
    SetButton(kelp, {.Caption = captions::kStart});
  }
  if (index == kStaBottle || index == kStaVial) NumberRows(kelp, index, text);
}

void txtStaInfo_LostFocus(Kelp& kelp, int index) {
  TextBox& box = kelp.frmAcquire.txtStaInfo[index];
  box.Problem = ProblemOf(kelp, index);
  const std::string own = index == kStaFiltDate   ? OwnDate(box.Text)
                          : index == kStaFiltTime ? OwnTime(box.Text)
                                                  : "";
  if (!box.Problem.empty())
    SetStatus(kelp, "\"" + box.Text + "\": " + box.Problem + ". The value stays as typed.");
  else if (!own.empty() && own != box.Text)
    PutValue(kelp, {.Header = index}, own, {.Way = How::Typed});
  PromptStepAgain(kelp);
}

}  // namespace kelp
