#include "workflow/record.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "files/read_log.hpp"
#include "files/station_values.hpp"
#include "workflow/steps.hpp"

namespace kelp {

// The box of a value: end values stand behind the begin values.
int RecordBox(const Kelp& kelp, const std::string& code) {
  const bool standard = kelp.run.StepName == "STANDARD";
  if (code == "1") return kBoxCopro1 + ReadsEndValues(kelp, kStepCopros);
  if (code == "2") return kBoxCopro2 + ReadsEndValues(kelp, kStepCopros);
  if (!standard) return kBoxBeginBlank + ReadsEndValues(kelp, kStepBlank);
  const bool high = Contains(kelp.frmAcquire.Command1.Caption, "High");
  return (high ? kBoxHighStandard : kBoxLowStandard) + ReadsEndValues(kelp, kStepStandard);
}

void RecordStep(Kelp& kelp, const std::string& value, const std::string& code) {
  const int box = RecordBox(kelp, code);
  kelp.frmAcquire.txtBlank[box].Text = value;
  if (box > kBoxEndBlank) return;
  kelp.run.SampTbl(2, box) = value;
  ShowAverageBlank(kelp);
}

std::string JoinedRow(const RunState& run, int row) {
  std::string line = run.SampTbl(row, 0);
  for (int col = 1; col < StationTable::kCols; ++col) line += "," + run.SampTbl(row, col);
  return line;
}

void RecordSampleReading(Kelp& kelp, int code) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  const std::string text = SavedText(run.CurReading);
  const int row = SampleRow(run);
  std::string line;
  // An Rb accepted below the blank (code 7) is shown in the grid but kept out of the table.
  if (code == 3) run.SampTbl(row, kTblRb) = text;
  if (code == 4) {
    run.SampTbl(row, kTblRa) = text;
    line = JoinedRow(run, row);
  }
  form.datalog.Text(run.SampNum, code == 4 ? kColRa : kColRb) = text;
  run.CurReading = 0;
  run.ReadCount = 0;
  run.ReadIndex = 0;
  run.TraceColor = kTraceRed;
  if (run.ReadFlag) {
    run.TraceColor = kTraceBlue;
    form.Text4.Text = "ACIDIFY - ONE squirt 10% HCL using Repipettor";
    return;
  }
  const bool last = run.SampNum >= run.SampCount;
  if (last)
    form.Command1.Caption = "What's Next";
  else
    ++run.SampNum;
  AppendSampleLine(kelp, line, ",**");
  if (last) ShowScreen(kelp, "frmWhatsNext");
}

}  // namespace kelp
