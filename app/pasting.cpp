// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/pasting.hpp"

#include <algorithm>

#include "core/text.hpp"

namespace kelp {

namespace {

using Block = std::vector<std::vector<std::string>>;

Block CellsOf(const std::string& text) {
  Block rows;
  for (const std::string& line : Lines(Replaced(text, "\r\n", "\n"))) {
    std::vector<std::string> cells(1);
    for (const char c : line) {
      if (c == '\t')
        cells.emplace_back();
      else if (static_cast<unsigned char>(c) >= 32)
        cells.back() += c;
    }
    rows.push_back(std::move(cells));
  }
  return rows;
}

std::string Told(const Grid& grid, int rows, std::size_t cols, bool leftOut) {
  const int last = grid.Row + rows - 1;
  std::string text = "Pasted into " + grid.Text(0, grid.Col);
  if (cols > 1) text += " to " + grid.Text(0, grid.Col + static_cast<int>(cols) - 1);
  text += rows == 1 ? " of sample " + std::to_string(last)
                    : " of samples " + std::to_string(grid.Row) + " to " + std::to_string(last);
  return text + (leftOut ? "; the rest of the block lies outside the station and was left out." : ".");
}

}  // namespace

void PasteCells(Kelp& kelp, const std::string& block) {
  Grid& grid = kelp.frmAcquire.datalog;
  const Block cells = CellsOf(block);
  const int samples = std::min(int{kelp.run.SampCount}, grid.Rows - 1);
  if (cells.empty() || grid.Row < 1 || grid.Row > samples) {
    SetStatus(kelp, cells.empty() ? "There is nothing to paste." : "This row is no sample of the station.");
    return;
  }
  const int rows = std::min(static_cast<int>(cells.size()), samples - grid.Row + 1);
  bool leftOut = rows < static_cast<int>(cells.size());
  std::size_t widest = 0;
  for (int r = 0; r < rows; ++r) {
    const auto& row = cells[static_cast<std::size_t>(r)];
    const auto width = std::min(row.size(), static_cast<std::size_t>(grid.Cols - grid.Col));
    leftOut |= width < row.size();
    widest = std::max(widest, width);
    for (std::size_t c = 0; c < width; ++c)
      grid.Text(grid.Row + r, grid.Col + static_cast<int>(c)) = Trim(row[c]);
  }
  SetStatus(kelp, Told(grid, rows, widest, leftOut));
}

}  // namespace kelp
