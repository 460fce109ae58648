// The header boxes of the acquisition screen: what an edit means, and the check when one is left.
#include <array>

#include "core/date_time.hpp"
#include "core/numbers.hpp"
#include "core/option.hpp"
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
  struct Row {
    std::string_view step;
    const char* prompt;
  };
  static constexpr std::array<Row, 4> kRows = {{{"BLANK", "Load Blank then press <spacebar> twice."},
                                                {"STANDARD", "Load Standard then press <spacebar> twice."},
                                                {"COPROS", "Load Copro then press <spacebar> twice."},
                                                {"SAMPLE", "Load Sample then press <spacebar> twice."}}};
  auto& options = kelp.frmAcquire.Option1;
  for (int i = 0; i < options.kCount; ++i) {
    if (kelp.run.StepName != kRows[static_cast<std::size_t>(i)].step) continue;
    SelectOption(options, i);
    kelp.frmAcquire.Text4.Text = kRows[static_cast<std::size_t>(i)].prompt;
    return;
  }
  kelp.frmAcquire.Text4.Text = "Press <spacebar> to restart...";
}

}  // namespace

void txtStaInfo_Change(Kelp& kelp, int index) {
  if (index == kStaProcNum) {
    kelp.run.ProcNumEdited = true;
    kelp.frmAcquire.Command1.Caption = "&Start";
  }
  if (index == kStaBottle) kelp.run.BottleEdited = true;
  if (index == kStaVial) kelp.run.VialEdited = true;
}

void txtStaInfo_LostFocus(Kelp& kelp, int index) {
  TextBox& box = kelp.frmAcquire.txtStaInfo[index];
  if (index == kStaFiltTime) box.Text = WholeTime(box.Text);
  box.Problem = ProblemOf(kelp, index);
  if (!box.Problem.empty())
    SetStatus(kelp, "\"" + box.Text + "\": " + box.Problem + ". The value stays as typed.");
  PromptStepAgain(kelp);
}

}  // namespace kelp
