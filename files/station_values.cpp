// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/station_values.hpp"

#include "core/text.hpp"

namespace kelp {

std::string BlankText(const Kelp& kelp, int box) {
  const std::string& read = box == kBoxBeginBlank ? kelp.run.BeginBlankText : kelp.run.EndBlankText;
  return read.empty() ? BoxText(kelp, box) : read;
}

std::string BoxText(const Kelp& kelp, int box) {
  const std::string& shown = kelp.frmAcquire.txtBlank[box].Text;
  return Trim(shown).empty() || shown == "0" ? "-99.00" : shown;
}

std::string CellText(const Kelp& kelp, int row, int col) {
  const std::string& shown = kelp.frmAcquire.datalog.Text(row, col);
  return (col == kColRb || col == kColRa) && Trim(shown).empty() ? "-99.000" : shown;
}

DateAndTime ReadAt(const RunState& run) { return SplitDateTime(Replaced(run.RunDate, ",", " ")); }

}  // namespace kelp
