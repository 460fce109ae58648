// [Skip]: leaves out a standard, a copro, the blank or a sample; -99 marks what was not read.
#include "core/text.hpp"
#include "files/read_log.hpp"
#include "workflow/run_controls.hpp"

namespace kelp {

namespace {

constexpr const char* kNotRead = "-99.00";
constexpr const char* kSampleNotRead = "-99.000";

void MarkBoxes(Kelp& kelp, int first, int last) {
  for (int box = first; box <= last; ++box) kelp.frmAcquire.txtBlank[box].Text = kNotRead;
}

void GoToSamples(Kelp& kelp) {
  kelp.frmAcquire.Command1.Caption = "Load Station Sample";
  kelp.run.StepName = "SAMPLE";
}

void SkipCopro(Kelp& kelp) {
  Button& button = kelp.frmAcquire.Command1;
  if (button.Caption == "Load Copro " + kelp.run.CoproLowStd) {
    MarkBoxes(kelp, 6, 7);
    button.Caption = "Load Copro " + kelp.run.CoproHighStd;
  } else if (button.Caption == "Load Copro " + kelp.run.CoproHighStd) {
    MarkBoxes(kelp, 8, 9);
    GoToSamples(kelp);
  } else {
    kelp.run.StepName = "SAMPLE";
  }
}

// Returns the sample's line for the log.
std::string MarkSample(Kelp& kelp) {
  RunState& run = kelp.run;
  Grid& grid = kelp.frmAcquire.datalog;
  const int row = SampleRow(run);
  std::string& tableRb = run.SampTbl(row, kTblRb);
  std::string& rb = grid.Text(run.SampNum, kColRb);
  if (rb.empty()) rb = kSampleNotRead;
  grid.Text(run.SampNum, kColRa) = kSampleNotRead;
  tableRb = rb;
  run.SampTbl(row, kTblRa) = kSampleNotRead;
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
  run.TraceColor = kTraceRed;
  run.ReadCount = 0;
  run.ReadIndex = 0;
  form.txtStats[0].Text = "0";
  if (run.SampNum < run.SampCount) {
    ++run.SampNum;
    form.Command1.Caption = "Load Next Sample";
    AppendSampleLine(kelp, line, ",*");
  } else {
    form.Command1.Caption = "What's Next";
    RenumberRemainingVials(kelp);
    AppendSampleLine(kelp, line, ",*");
    ShowScreen(kelp, "frmWhatsNext");
  }
}

}  // namespace

void Command5_Click(Kelp& kelp) {
  RunState& run = kelp.run;
  if (run.StepName == "STANDARD") {
    MarkBoxes(kelp, 2, 5);
    GoToSamples(kelp);
  } else if (run.StepName == "COPROS") {
    SkipCopro(kelp);
  } else if (run.StepName == "BLANK") {
    MarkBoxes(kelp, 0, 1);
    kelp.frmAcquire.Command1.Caption = "Load Copro " + run.CoproLowStd;
    run.StepName = "COPROS";
  } else if (run.StepName == "SAMPLE" || run.StepName == "ADDED") {
    SkipSample(kelp);
  }
}

}  // namespace kelp
