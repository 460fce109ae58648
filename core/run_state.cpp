// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/run_state.hpp"

#include <algorithm>

#include "platform/error.hpp"

namespace kelp {

std::size_t StationTable::Index(int row, int col) {
  if (row < 0 || row >= kRows || col < 0 || col >= kCols)
    throw RunTimeError(ErrorKind::Subscript, "station table row " + std::to_string(row) + ", column " +
                                                 std::to_string(col) + " (105 rows of 14 columns)");
  return static_cast<std::size_t>(row * kCols + col);
}

void ClearRawReads(RunState& run) {
  std::fill(run.RawReads.begin(), run.RawReads.end(), 0.0F);
  run.ReadsInBuffer = 0;
  run.SdIsValid = false;
  run.ErrorIsTold = false;
  run.ReadCount = 0;
  run.ReadIndex = 0;
}

void ClearTable(RunState& run) { run.SampTbl.Clear(); }

void SplitToRow(StationTable& table, std::string_view line, int row) {
  if (line.empty()) return;
  if (line.front() == ' ')
    throw RunTimeError(ErrorKind::InvalidCall,
                       "the line begins with a blank; its first field must stand at its start");
  int col = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] != ' ')
      table(row, col) += line[i];
    else if (line[i - 1] != ' ')
      ++col;
  }
}

}  // namespace kelp
