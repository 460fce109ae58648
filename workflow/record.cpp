// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/record.hpp"

#include "core/captions.hpp"
#include "core/numbers.hpp"
#include "core/places.hpp"
#include "core/start_button.hpp"
#include "workflow/log.hpp"
#include "workflow/steps.hpp"

namespace kelp {

// The box of a value: end values stand behind the begin values.
int RecordBox(const Kelp& kelp, const std::string& code) {
  if (code == "1") return kBoxCopro1 + ReadsEndValues(kelp, kStepCopros);
  if (code == "2") return kBoxCopro2 + ReadsEndValues(kelp, kStepCopros);
  const Item item = ButtonRow(kelp).What;
  const bool high = item == Item::HighStandard;
  if (!high && item != Item::LowStandard) return kBoxBeginBlank + ReadsEndValues(kelp, kStepBlank);
  return (high ? kBoxHighStandard : kBoxLowStandard) + ReadsEndValues(kelp, kStepStandard);
}

void RecordStep(Kelp& kelp, const std::string& value, const std::string& code, const StoreNote& note) {
  PutValue(kelp, {.Box = RecordBox(kelp, code)}, value, note);
}

std::string JoinedRow(const RunState& run, int row) {
  std::string line = run.SampTbl(row, 0);
  for (int col = 1; col < StationTable::kCols; ++col) line += "," + run.SampTbl(row, col);
  return line;
}

void RecordSampleReading(Kelp& kelp, int code, const StoreNote& note) {
  RunState& run = kelp.run;
  const std::string text = SavedText(run.CurReading);
  const int row = SampleRow(run);
  const Place place{.Row = run.SampNum, .Col = code == 4 ? kColRa : kColRb};
  static_cast<void>(run.SampTbl(row, kTblRb));
  // An Rb accepted below the blank (code 7) is shown in the grid but kept out of the table.
  code == 7 ? PutOutsideTable(kelp, place, text, note) : PutValue(kelp, place, text, note);
  const std::string line = code == 4 ? JoinedRow(run, row) : "";
  // The reads of an Rb stay in the buffer: the acid is seen against them.
  run.CurReading = 0;
  run.ReadCount = 0;
  run.ReadIndex = 0;
  run.TraceColor = kTraceRed;
  if (run.ReadFlag) {
    run.TraceColor = kTraceBlue;
    Say(kelp, "ACIDIFY - ONE squirt 10% HCL using Repipettor");
    return;
  }
  const bool last = run.SampNum >= run.SampCount;
  if (last)
    SetButton(kelp, {.Caption = captions::kWhatsNext, .Text = Said(kelp), .Trace = kTraceRed});
  else
    ++run.SampNum;
  LogSample(kelp, line, ",**");
  if (last) ShowScreen(kelp, kelp.frmWhatsNext.Form);
}

}  // namespace kelp
