// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/dialogs.hpp"

#include <algorithm>
#include <utility>

#include "calc/calc_samples.hpp"
#include "core/captions.hpp"
#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/places.hpp"
#include "core/start_button.hpp"
#include "core/steps.hpp"
#include "core/text.hpp"
#include "workflow/open_station.hpp"

namespace kelp {

namespace {

struct StepRow {
  std::string caption;
  std::uint32_t trace;
  const char* step;
};

// The rows are numbered as a list of ten, while the dialog carries eight options: its "Load Sample",
// "Read Rb" and "Read Ra" act as rows 5 to 7. The operators rely on it.
StepRow ChangeStepRow(const RunState& run, int index) {
  const StepRow rows[] = {{captions::kStart, kTraceMagenta, steps::kStandby},
                          {captions::kLoadBlank, kTraceMagenta, steps::kBlank},
                          {captions::kReadingBlank, kTraceGreen, steps::kBlank},
                          {WithNames(run, captions::kLoadFirstCopro), kTraceMagenta, steps::kCopros},
                          {WithNames(run, captions::kReadingFirstCopro), kTraceGreen, steps::kCopros},
                          {WithNames(run, captions::kLoadSecondCopro), kTraceMagenta, steps::kCopros},
                          {WithNames(run, captions::kReadingSecondCopro), kTraceGreen, steps::kCopros},
                          {captions::kLoadStationSample, kTraceMagenta, steps::kSample},
                          {captions::kReadRb, kTraceGreen, steps::kSample},
                          {captions::kReadRa, kTraceBlue, steps::kSample}};
  return rows[index];
}

int SelectedOption(const FrmChangeStep& dialog) {
  for (int i = 0; i < dialog.Option1.kCount; ++i)
    if (dialog.Option1[i].Value) return i;
  return -1;
}

void ResetToSelection(Kelp& kelp) {
  RunState& run = kelp.run;
  const int index = SelectedOption(kelp.frmChangeStep);
  if (index < 0) {
    SetStatus(kelp, "No step was selected: nothing has changed.");
    return;
  }
  run.ReadFlag = false;
  run.ReadInProgress = false;
  ClearRawReads(run);
  const StepRow row = ChangeStepRow(run, index);
  SetButton(kelp, {.Caption = row.caption, .Trace = row.trace, .SecondCopro = index == 5 || index == 6});
  run.StepName = row.step;
  // Who chooses to read an item says that it is in the holder; who chooses a step means to read it anew.
  const CaptionRow& button = ButtonRow(kelp);
  if (button.Does == Phase::Read) run.Loaded = true;
  if (button.What == Item::Rb) run.ReplaceSample = run.SampNum;
  SetStatus(kelp, "The step was changed: the button reads [" + AsRead(row.caption) + "] now.");
  if (index == 0)
    Tell(kelp,
         "This has stopped data aquistion but has not reinitialized all the station info.  Quit without "
         "saving then "
         "restart to do that.");
}

void RenumberVials(Kelp& kelp, const std::string& startingVial) {
  RunState& run = kelp.run;
  kelp.frmAcquire.txtStaInfo[kStaVial].Text = startingVial;
  run.TubeNum = ToInt16(Val(startingVial));
  for (int row = 1; row <= run.SampCount; ++row) {
    kelp.frmAcquire.datalog.Text(row, kColVial) = std::to_string(int{run.TubeNum});
    ++run.Stores;
    if (row < run.SampCount) ++run.TubeNum;
  }
}

void RecalculateData(Kelp& kelp) {
  const std::string startingVial = kelp.frmRecalc.Text1[0].Text;
  const std::string blank = kelp.frmRecalc.Text1[1].Text;
  kelp.Note = {.Way = How::Calculated};
  kelp.run.StepName = steps::kRecalc;
  if (!startingVial.empty()) RenumberVials(kelp, startingVial);
  // The blank typed is that of the station: box, table and average follow.
  if (!blank.empty()) PutValue(kelp, {.Box = kBoxBeginBlank}, blank, {.Way = How::Typed});
  const auto close = [&] {
    HideScreen(kelp, kelp.frmRecalc.Form);
    RaiseScreen(kelp, kelp.frmWhatsNext.Form);
  };
  try {
    CalcAllSamples(kelp);
  } catch (const RunTimeError&) {
    // Rows that can't be calculated are named afterwards; the others are done.
    close();
    throw;
  }
  close();
}

void ReloadBaseFile(Kelp& kelp) {
  RunState& run = kelp.run;
  run.StepName = steps::kReload;
  run.DataOutPath = WithBackslash(CfgValue(run, kCfgDataPath));
  run.BaseFile = run.DataOutPath + "chl" + run.ProcNum + "Base";
  LoadBaseFile(kelp, run.BaseFile);
  HideScreen(kelp, kelp.frmRecalc.Form);
  RaiseScreen(kelp, kelp.frmAcquire.Form);
}

}  // namespace

void CalcAllSamples(Kelp& kelp) {
  RunState& run = kelp.run;
  MoveToSample(kelp, std::max(1, int{run.SampCount}));
  AllRows all;
  for (int row = 1; row <= run.SampCount; ++row) {
    ShowScreen(kelp, kelp.frmAcquire.Form);
    CalcRowGuarded(kelp, row, all);
  }
  SetStatus(kelp, "All samples are calculated. The run stands at sample " + std::to_string(int{run.SampNum}) +
                      " now.");
  ShowScreen(kelp, kelp.frmWhatsNext.Form);
  AppendAllRows(kelp, std::move(all));
}

void frmChangeStep_Command1_Click(Kelp& kelp, int index) {
  if (index == 0) ResetToSelection(kelp);
  UnloadScreen(kelp, kelp.frmChangeStep);
}

void dlgRunRem_OKButton_Click(Kelp& kelp) {
  const std::string remark(Trim(kelp.dlgRunRem.Text1.Text));
  if (remark.empty()) {
    SetStatus(kelp, "The remark is empty: nothing was stored.");
    return;
  }
  const std::string& caption = kelp.frmAcquire.Command1.Caption;
  const bool filterer = kelp.dlgRunRem.Option1[0].Value;
  const bool before = Contains(caption, "Next") && kelp.dlgRunRem.Option1[2].Value;
  const int row = kelp.run.SampNum - (before ? 1 : 0);
  // The table row is the sample's number as it stands, without the offset that Skip applies.
  kelp.run.SampTbl(row, filterer ? kTblFiltererRemark : kTblReaderRemark) = remark;
  // Behind the last sample the run has not moved on: the sample just run is the current one.
  const int sample = StartsWith(caption, "What") ? int{kelp.run.SampNum} : row;
  if (sample < 1 || sample > kelp.run.SampCount) {
    SetStatus(kelp, "There is no sample " + std::to_string(sample) + " for the remark.");
    return;
  }
  PutValue(kelp, {.Row = sample, .Col = filterer ? kColFiltCom : kColReadCom}, remark, {.Way = How::Remark});
}

void frmRecalc_Command1_Click(Kelp& kelp, int index) {
  if (index == 0) RecalculateData(kelp);
  if (index == 1) ReloadBaseFile(kelp);
  if (index == 2) UnloadScreen(kelp, kelp.frmRecalc);
}

}  // namespace kelp
