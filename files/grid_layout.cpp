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

template <std::size_t N>
void CopyRow(Kelp& kelp, int sample, const Place (&places)[N]) {
  for (const Place& place : places)
    kelp.frmAcquire.datalog.Text(sample, place.grid) =
        kelp.run.SampTbl(sample + StationTable::kFirstSampleRow - 1, place.table);
}

void LayOutRow(Kelp& kelp, int sample, bool reopened) {
  CopyRow(kelp, sample, kFreshPlaces);
  if (reopened) CopyRow(kelp, sample, kResultPlaces);
  ++kelp.run.TubeNum;
  std::string& vial = kelp.frmAcquire.datalog.Text(sample, kColVial);
  if (vial.empty()) vial = std::to_string(int{kelp.run.TubeNum});
}

// A starting bottle or vial that the operator typed numbers the rows of the station now set up.
void TakeTypedNumbers(Kelp& kelp, bool reopened) {
  RunState& run = kelp.run;
  auto& header = kelp.frmAcquire.txtStaInfo;
  if (run.VialEdited) run.TubeNum = static_cast<long long>(ToInt16(Val(header[kStaVial].Text))) - 1;
  if (run.BottleEdited && !reopened) {
    const long long first = ToInt16(Val(header[kStaBottle].Text));
    for (int sample = 1; sample <= run.SampCount; ++sample) {
      const Counter16 bottle = first - 1 + sample;
      run.SampTbl(sample + 4, kTblBottle) = Padded(std::to_string(int{bottle}), 2, "L", "0");
    }
  }
  run.VialEdited = false;
  run.BottleEdited = false;
}

}  // namespace

void LayOutGrid(Kelp& kelp, bool reopened) {
  Grid& grid = kelp.frmAcquire.datalog;
  for (int row = 1; row < grid.Rows; ++row)
    for (int col = 0; col < grid.Cols; ++col) grid.Text(row, col).clear();
  TakeTypedNumbers(kelp, reopened);
  for (int sample = 1; sample <= kelp.run.SampCount; ++sample) LayOutRow(kelp, sample, reopened);
  grid.Row = 1;
  grid.Col = 0;
}

void LayOutAddedSample(Kelp& kelp) { LayOutRow(kelp, kelp.run.SampCount, false); }

}  // namespace kelp
