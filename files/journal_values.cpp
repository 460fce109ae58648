#include "files/journal_values.hpp"

#include <algorithm>
#include <array>

#include "core/numbers.hpp"
#include "core/option.hpp"

namespace kelp {

namespace {

bool IsMeasured(int gridColumn) {
  return gridColumn == kColRb || gridColumn == kColRa || gridColumn == kColFiltCom ||
         gridColumn == kColReadCom;
}

int StepOptionOf(const std::string& step) {
  static constexpr std::array<std::string_view, 3> kSteps = {"BLANK", "STANDARD", "COPROS"};
  for (std::size_t i = 0; i < kSteps.size(); ++i)
    if (step == kSteps[i]) return static_cast<int>(i);
  return kStepSamples;
}

// False for a line that does not belong anywhere: the journal is damaged from there on.
bool Apply(Kelp& kelp, const JournalLine& line) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  const auto is = [&](std::string_view kind) { return line.Kind == kind; };
  const int number = is("SampCount") || is("SampNum") || is("TubeNum") ? ToInt16(Val(line.Value)) : 0;
  // A base file that was created anew since may have more rows; they stay.
  if (is("SampCount") && number >= 0 && number <= kMaxSamples)
    run.SampCount = std::max<int>(run.SampCount, number);
  else if (is("SampNum") && number >= 1 && number <= kMaxSamples + 1)
    run.SampNum = number;
  else if (is("TubeNum"))
    run.TubeNum = number;
  else if (is("grid") && line.A >= 1)
    form.datalog.Text(line.A, line.B) = line.Value;
  else if (is("table") && line.A >= StationTable::kFirstSampleRow)
    run.SampTbl(line.A, line.B) = line.Value;
  else if (is("txtBlank"))
    form.txtBlank[line.A].Text = line.Value;
  else if (is("txtStaInfo"))
    form.txtStaInfo[line.A].Text = line.Value;
  else if (is("Option1"))
    form.Option1[line.A].Caption = line.Value;
  else if (is("Combo1"))
    form.Combo1.Text = line.Value;
  else if (is("BeginBlankText"))
    run.BeginBlankText = line.Value;
  else if (is("EndBlankText"))
    run.EndBlankText = line.Value;
  else if (is("LowStdText"))
    run.LowStdText = line.Value;
  else if (is("HighStdText"))
    run.HighStdText = line.Value;
  else if (is("RunDate"))
    run.RunDate = line.Value;
  else if (is("StepName"))
    run.StepName = line.Value;
  else
    return is("station");
  return true;
}

void ApplyAll(Kelp& kelp, const std::vector<JournalLine>& lines) {
  for (const JournalLine& line : lines) {
    try {
      if (!Apply(kelp, line)) return;
    } catch (const RunTimeError&) {
      return;  // an index that no station has: the journal is damaged from here on
    }
  }
}

// Where the run goes on: a sample that has its Rb waits for acid, and after the last Ra the chooser. Another
// sample that has its Ra already is about to be read again.
void GoOn(Kelp& kelp) {
  RunState& run = kelp.run;
  const Grid& grid = kelp.frmAcquire.datalog;
  const std::string& rb = grid.Text(std::min<int>(run.SampNum, kMaxSamples), kColRb);
  const std::string& ra = grid.Text(std::min<int>(run.SampNum, kMaxSamples), kColRa);
  SelectOption(kelp.frmAcquire.Option1, StepOptionOf(run.StepName));
  run.Resume = ResumeAt::Step;
  if (StepOptionOf(run.StepName) != kStepSamples) return;
  if (!ra.empty() && run.SampNum >= run.SampCount) run.Resume = ResumeAt::Chooser;
  if (rb.empty() || !ra.empty()) return;
  run.Resume = ResumeAt::Ra;
  run.RbReading = static_cast<float>(Val(rb));
}

}  // namespace

int RowsInUse(const Kelp& kelp) {
  const Grid& grid = kelp.frmAcquire.datalog;
  int rows = grid.Rows - 1;
  while (rows > kelp.run.SampCount && grid.Text(rows, kColRb).empty() && grid.Text(rows, kColRa).empty())
    --rows;
  return rows;
}

std::vector<JournalValue> JournalValues(const Kelp& kelp) {
  const RunState& run = kelp.run;
  const FrmAcquire& form = kelp.frmAcquire;
  std::vector<JournalValue> values;
  const auto add = [&](const char* kind, int a, int b, const std::string& text, bool measured) {
    values.push_back({{kind, a, b, text}, measured});
  };
  add("SampCount", 0, 0, std::to_string(int{run.SampCount}), false);
  const int rows = RowsInUse(kelp);
  for (int row = 1; row <= rows; ++row) {
    const int tableRow = row + StationTable::kFirstSampleRow - 1;
    for (int col = 0; col < form.datalog.Cols; ++col)
      add("grid", row, col, form.datalog.Text(row, col), IsMeasured(col));
    for (int col = 0; col < StationTable::kCols; ++col)
      add("table", tableRow, col, run.SampTbl(tableRow, col), false);
  }
  for (int i = 0; i < kBoxAutoCriterion; ++i) add("txtBlank", i, 0, form.txtBlank[i].Text, true);
  for (int i = 1; i < form.txtStaInfo.kCount; ++i) add("txtStaInfo", i, 0, form.txtStaInfo[i].Text, false);
  for (int i = 0; i < form.Option1.kCount; ++i) add("Option1", i, 0, form.Option1[i].Caption, false);
  add("Combo1", 0, 0, form.Combo1.Text, false);
  add("BeginBlankText", 0, 0, run.BeginBlankText, false);
  add("EndBlankText", 0, 0, run.EndBlankText, false);
  add("LowStdText", 0, 0, run.LowStdText, false);
  add("HighStdText", 0, 0, run.HighStdText, false);
  add("RunDate", 0, 0, run.RunDate, false);
  add("StepName", 0, 0, run.StepName, false);
  add("TubeNum", 0, 0, std::to_string(int{run.TubeNum}), false);
  add("SampNum", 0, 0, std::to_string(int{run.SampNum}), false);
  return values;
}

void RestoreStation(Kelp& kelp, const std::vector<JournalLine>& lines) {
  ApplyAll(kelp, lines);
  GoOn(kelp);
}

}  // namespace kelp
