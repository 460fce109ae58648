// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/grid_layout.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

struct Place {
  TableCol table;
  GridCol grid;
};

constexpr Place kFreshPlaces[] = {
    {kTblBottle, kColBottle}, {kTblDepth, kColDepth}, {kTblFilV, kColFilV}, {kTblExV, kColExV}};

constexpr Place kResultPlaces[] = {{kTblRb, kColRb},
                                   {kTblRa, kColRa},
                                   {kTblChla, kColChla},
                                   {kTblPhaeo, kColPhaeo},
                                   {kTblAcidR, kColAcidR},
                                   {kTblQc, kColQc},
                                   {kTblTube, kColVial},
                                   {kTblFiltererRemark, kColFiltCom},
                                   {kTblReaderRemark, kColReadCom}};

int TableRow(int sample) { return sample + StationTable::kFirstSampleRow - 1; }

template <std::size_t N>
void CopyToGrid(Kelp& kelp, int sample, const Place (&places)[N]) {
  for (const Place& place : places)
    kelp.frmAcquire.datalog.Text(sample, place.grid) = kelp.run.SampTbl(TableRow(sample), place.table);
}

template <std::size_t N>
void CopyToTable(Kelp& kelp, int sample, const Place (&places)[N]) {
  for (const Place& place : places)
    kelp.run.SampTbl(TableRow(sample), place.table) = kelp.frmAcquire.datalog.Text(sample, place.grid);
}

std::string CodeOf(const std::string& cell) { return cell.substr(0, cell.find(' ')); }

void LayOutRow(Kelp& kelp, int sample, bool reopened) {
  Grid& grid = kelp.frmAcquire.datalog;
  CopyToGrid(kelp, sample, kFreshPlaces);
  if (reopened) {
    CopyToGrid(kelp, sample, kResultPlaces);
    // The table has no column for what was typed under "FlV": it travels behind the code.
    std::string& code = kelp.run.SampTbl(TableRow(sample), kTblCode);
    const auto blank = code.find(' ');
    if (blank != std::string::npos) grid.Text(sample, kColFlV) = code.substr(blank + 1);
    code = CodeOf(code);
    // Its rows have their tubes, and count none.
    return;
  }
  ++kelp.run.TubeNum;
  if (grid.Text(sample, kColVial).empty())
    grid.Text(sample, kColVial) = std::to_string(int{kelp.run.TubeNum});
}

// A starting bottle or vial that the operator typed numbers the rows of the station now set up.
void TakeTypedNumbers(Kelp& kelp, bool reopened) {
  RunState& run = kelp.run;
  auto& header = kelp.frmAcquire.txtStaInfo;
  if (run.VialEdited && !reopened)
    run.TubeNum = static_cast<long long>(ToInt16(Val(header[kStaVial].Text))) - 1;
  if (run.BottleEdited && !reopened) {
    const long long first = ToInt16(Val(header[kStaBottle].Text));
    for (int sample = 1; sample <= run.SampCount; ++sample) {
      const Counter16 bottle = first - 1 + sample;
      run.SampTbl(TableRow(sample), kTblBottle) = Padded(std::to_string(int{bottle}), 2, "L", "0");
    }
  }
  run.VialEdited = false;
  run.BottleEdited = false;
}

}  // namespace

void LayOutGrid(Kelp& kelp, bool reopened) {
  Grid& grid = kelp.frmAcquire.datalog;
  ClearGrid(grid);
  TakeTypedNumbers(kelp, reopened);
  for (int sample = 1; sample <= kelp.run.SampCount; ++sample) LayOutRow(kelp, sample, reopened);
  grid.Row = 1;
  grid.Col = 0;
}

void LayOutAddedSample(Kelp& kelp) {
  Grid& grid = kelp.frmAcquire.datalog;
  const int row = kelp.run.SampCount;
  for (int col = 0; col < grid.Cols; ++col) grid.Text(row, col).clear();
  LayOutRow(kelp, row, false);
}

void ClearGrid(Grid& grid) {
  for (int row = 1; row < grid.Rows; ++row)
    for (int col = 0; col < grid.Cols; ++col) grid.Text(row, col).clear();
}

void TakeGrid(Kelp& kelp) {
  RunState& run = kelp.run;
  const FrmAcquire& form = kelp.frmAcquire;
  run.SampTbl(0, 0) = OneField(Trim(form.txtStaInfo[kStaLineSta].Text), false);
  run.SampTbl(1, 0) = OneField(Trim(form.txtStaInfo[kStaFluorometer].Text), false);
  if (!run.BeginBlankText.empty()) run.SampTbl(2, 0) = run.BeginBlankText;
  if (!run.EndBlankText.empty()) run.SampTbl(2, 1) = run.EndBlankText;
  run.SampTbl(4, 1) = std::to_string(int{run.SampCount});
  for (int sample = 1; sample <= run.SampCount; ++sample) {
    CopyToTable(kelp, sample, kFreshPlaces);
    CopyToTable(kelp, sample, kResultPlaces);
  }
}

}  // namespace kelp
