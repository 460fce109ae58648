// SPDX-License-Identifier: GPL-3.0-or-later
#include "calc/calc_samples.hpp"

#include <algorithm>

#include "calc/pigments.hpp"
#include "core/captions.hpp"
#include "core/numbers.hpp"
#include "core/results_line.hpp"
#include "core/start_button.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

// What a row of the grid gives; Rb and Ra have the blank subtracted.
PigmentInput RowInput(const Kelp& kelp, int row) {
  const Grid& grid = kelp.frmAcquire.datalog;
  const double blank = Val(kelp.run.BeginBlankText);
  PigmentInput in;
  in.F = Val(kelp.frmAcquire.txtStaInfo[kStaF].Text);
  in.Tau = Val(kelp.frmAcquire.txtStaInfo[kStaTau].Text);
  in.Rb = Val(grid.Text(row, kColRb)) - blank;
  in.Ra = Val(grid.Text(row, kColRa)) - blank;
  in.FilV = Val(grid.Text(row, kColFilV));
  in.ExV = Val(grid.Text(row, kColExV));
  return in;
}

void WriteResults(Kelp& kelp, int row, const Pigments& results) {
  Grid& grid = kelp.frmAcquire.datalog;
  ++kelp.run.Stores;
  grid.Text(row, kColChla) = ResultText(results.Chla);
  grid.Text(row, kColPhaeo) = ResultText(results.Phaeo);
  grid.Text(row, kColAcidR) = RatioText(results.AcidR);
  grid.Text(row, kColQc) = QcFlag(ToInt16(Val(grid.Text(row, kColDepth))), results.AcidR);
}

std::string ResultsText(const Kelp& kelp, int row) {
  return ResultsLine(kelp.frmAcquire.datalog, row) + "\r\n";
}

void AppendResults(Kelp& kelp, const std::string& lines) {
  kelp.platform.Aside([&] {
    AppendUnderHead(kelp.platform.disk(), kelp.run.PrnBackupFile,
                    std::string(kResultsHeading) + "\r\n" + kResultsRule + "\r\n", lines);
  });
}

// The sample just finished: the pointer has moved on to the next sample unless the run stands at
// its start or its end. Before the first sample the grid's current row is taken, and the pointer follows it,
// inside the station. A row of 0 is no sample.
int CurrentRow(Kelp& kelp) {
  RunState& run = kelp.run;
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  const int adjustment = caption != captions::kStart && caption != captions::kWhatsNext ? -1 : 0;
  int row = run.SampNum + adjustment;
  if (row < 1) {
    row = kelp.frmAcquire.datalog.Row;
    MoveToSample(kelp, std::clamp(row >= 1 ? row - adjustment : 1, 1, std::max(1, int{run.SampCount})));
    SetStatus(kelp, "Row " + std::to_string(row) + " of the grid is calculated. The run stands at sample " +
                        std::to_string(int{run.SampNum}) + " now.");
  }
  if (row <= run.SampCount) return row;
  SetStatus(kelp, "Row " + std::to_string(row) + " is no sample of this station: nothing is calculated.");
  return 0;
}

void FallBackOnStoredBlank(Kelp& kelp) {
  std::string& blank = kelp.run.BeginBlankText;
  const std::string& average = kelp.frmAcquire.txtStaInfo[kStaAveBlank].Text;
  if (!blank.empty()) return;
  if (Val(kelp.run.SampTbl(2, 0)) > 0)
    blank = kelp.run.SampTbl(2, 0);
  else if (Val(average) > 0)
    blank = average;
}

}  // namespace

void CalcCurrentSample(Kelp& kelp) {
  const int row = CurrentRow(kelp);
  if (row >= 1) CalcRow(kelp, row);
}

void CalcRow(Kelp& kelp, int row) {
  WriteResults(kelp, row, CalcPigments(RowInput(kelp, row)));
  AppendResults(kelp, ResultsText(kelp, row));
}

void CalcRowGuarded(Kelp& kelp, int row, AllRows& all) {
  try {
    FallBackOnStoredBlank(kelp);
    const PigmentInput in = RowInput(kelp, row);
    const bool negative = in.Rb < 0 || in.Ra < 0;
    WriteResults(kelp, row, negative ? Pigments{-99, -99, -99} : CalcPigments(in));
    all.Lines += ResultsText(kelp, row);
  } catch (const RunTimeError& error) {
    if (!all.Failure) all.Failure = error;
    all.FailedRows += (all.FailedRows.empty() ? "" : ", ") + std::to_string(row);
  }
}

void AppendAllRows(Kelp& kelp, AllRows all) {
  try {
    // All lines in one write: a flush for each would keep the operator waiting.
    if (!all.Lines.empty()) AppendResults(kelp, all.Lines);
  } catch (const RunTimeError& error) {
    if (!all.Failure) throw;
    all.Failure = RunTimeError(all.Failure->kind(), all.Failure->what() + ("; " + std::string(error.what())));
  }
  if (all.Failure)
    throw RunTimeError(all.Failure->kind(), "row " + all.FailedRows + ": " + all.Failure->what());
}

}  // namespace kelp
