// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/table_lines.hpp"

#include "files/table_field.hpp"

namespace kelp {

namespace {

constexpr int kBlankFields = 4;

std::string Fields(const RunState& run, int row, int first, int count) {
  std::string line;
  for (int col = first; col < first + count; ++col)
    line += (col > first ? " " : "") + FieldFromCell(run.SampTbl(row, col));
  return line;
}

// The fields of a header row in use, at least four. Remarks of the first samples stand behind them in
// the rows of the header: they are the samples' and not the header's.
int HeaderFields(const RunState& run, int row) {
  int count = kTblFiltererRemark;
  while (count > kBlankFields && run.SampTbl(row, count - 1).empty()) --count;
  return count;
}

std::string SampleLine(const Kelp& kelp, int sample) {
  const int row = sample + StationTable::kFirstSampleRow - 1;
  const std::string& flv = kelp.frmAcquire.datalog.Text(sample, kColFlV);
  std::string code = kelp.run.SampTbl(row, kTblCode);
  if (!flv.empty()) code += " " + flv;
  return FieldFromCell(code) + " " + Fields(kelp.run, row, kTblBottle, StationTable::kCols - 1);
}

}  // namespace

std::string NumberAndCount(std::string_view procNum, std::string_view count) {
  return std::string(procNum) + (count.size() < 2 ? "   " : "  ") + std::string(count);
}

std::vector<std::string> TableLines(const Kelp& kelp) {
  const RunState& run = kelp.run;
  std::vector<std::string> lines = {
      run.SampTbl(0, 0), run.SampTbl(1, 0), Fields(run, 2, 0, HeaderFields(run, 2)),
      Fields(run, 3, 0, HeaderFields(run, 3)),
      NumberAndCount(FieldFromCell(run.SampTbl(4, 0)), FieldFromCell(run.SampTbl(4, 1))) + " " +
          Fields(run, 4, 2, HeaderFields(run, 4) - 2)};
  for (int sample = 1; sample <= run.SampCount; ++sample) lines.push_back(SampleLine(kelp, sample));
  return lines;
}

}  // namespace kelp
