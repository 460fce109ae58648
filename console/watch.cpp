// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/watch.hpp"

#include "core/date_time.hpp"
#include "core/results_line.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

// A saved value as it is told; "0" is an empty box.
bool IsSaved(const std::string& text) { return !text.empty() && text != "0"; }

}  // namespace

void Watch::Look() {
  if (!kelp_.frmAcquire.Form.Visible) return;
  LookAtBoxes();
  LookAtGrid();
  LookAtCaption();
}

void Watch::LookAtCaption() {
  if (kelp_.frmAcquire.Command1.Caption == caption_) return;
  caption_ = kelp_.frmAcquire.Command1.Caption;
  print_(LongTime(kelp_.platform.Now()) + "  " + AsRead(caption_));
}

void Watch::LookAtBoxes() {
  for (int i = 0; i < static_cast<int>(boxes_.size()); ++i) {
    std::string& known = boxes_[static_cast<std::size_t>(i)];
    const std::string& text = kelp_.frmAcquire.txtBlank[i].Text;
    if (text == known) continue;
    known = text;
    if (IsSaved(text))
      print_("    saved " + std::string(Trim(kelp_.frmAcquire.lblBlank[i].Caption)) + " " + text);
  }
}

void Watch::LookAtGrid() {
  const Grid& grid = kelp_.frmAcquire.datalog;
  std::vector<Row>& rows = stations_[kelp_.run.ProcNum];
  rows.resize(static_cast<std::size_t>(grid.Rows));
  for (int row = 1; row <= kelp_.run.SampCount && row < grid.Rows; ++row)
    LookAtRow(row, rows[static_cast<std::size_t>(row)]);
}

void Watch::LookAtRow(int row, Row& known) {
  const Grid& grid = kelp_.frmAcquire.datalog;
  bool results = false;
  for (int col = kColRb; col <= kColQc; ++col) {
    std::string& cell = known.cells[static_cast<std::size_t>(col - kColRb)];
    const std::string& text = grid.Text(row, col);
    if (text == cell) continue;
    cell = text;
    if (col > kColRa)
      results = true;
    else if (!text.empty())
      print_("    saved sample " + std::to_string(row) + (col == kColRb ? " Rb " : " Ra ") + text);
  }
  if (!results) return;
  known.line = grid.Text(row, kColChla).empty() ? "" : ResultsLine(grid, row);
  if (!known.line.empty()) print_("    result " + known.line);
}

void Watch::Conclude(const std::vector<std::string>& written) const {
  for (const auto& [station, rows] : stations_) {
    bool headed = false;
    for (const Row& row : rows) {
      if (row.line.empty()) continue;
      if (!headed)
        for (const std::string& line : {std::string(), "Results of station " + station,
                                        std::string(kResultsHeading), std::string(kResultsRule)})
          print_(line);
      headed = true;
      print_("    " + row.line);
    }
  }
  print_("");
  print_("Files written");
  for (const std::string& path : written) print_("    " + path);
}

}  // namespace kelp
