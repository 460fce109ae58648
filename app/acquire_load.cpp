// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/acquire_load.hpp"

#include <functional>

#include "acquire/averaging.hpp"
#include "app/main_window.hpp"
#include "core/config.hpp"
#include "core/date_time.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "record/record.hpp"
#include "workflow/whats_next.hpp"

namespace kelp {

namespace {

// Nothing of the run before is found in the next, whatever it was doing.
void ResetRun(Kelp& kelp) {
  RunState& run = kelp.run;
  const std::string procNum = run.ProcNum;
  run.station() = {};
  run.ProcNum = procNum;
  const DateAndTime filtered = SplitDateTime(CfgValue(run, kCfgFiltration));
  run.CtdDate = filtered.Date;
  run.CtdTime = filtered.Time;
  ++run.Stores;
  run.TubeNum = ToInt16(Val(kelp.frmMain.Text1[4].Text));
}

void FillHeaderBoxes(Kelp& kelp) {
  struct Row {
    StaInfo box;
    CfgLine line;
  };
  static constexpr Row kRows[] = {{kStaProcNum, kCfgProcNum},         {kStaLineSta, kCfgStation},
                                  {kStaFluorometer, kCfgFluorometer}, {kStaF, kCfgMachineFactor},
                                  {kStaTau, kCfgAcidRatio},           {kStaFiltrVol, kCfgFiltrVol},
                                  {kStaBottle, kCfgStartBottle},      {kStaExtractVol, kCfgExtractVol}};
  auto& box = kelp.frmAcquire.txtStaInfo;
  for (const Row& row : kRows) box[row.box].Text = CfgValue(kelp.run, row.line);
  const Counter16 nextVial = ToInt16(Val(kelp.frmMain.Text1[4].Text)) + 1;
  box[kStaVial].Text = std::to_string(int{nextVial});
  box[kStaFiltDate].Text = kelp.run.CtdDate;
  box[kStaFiltTime].Text = kelp.run.CtdTime;
}

void TakeStandards(Kelp& kelp) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  run.CruiseID = CfgValue(run, kCfgCruise);
  run.ShipName = CfgValue(run, kCfgShip);
  run.CoproLowStd = CfgValue(run, kCfgCoproLow);
  run.CoproHighStd = CfgValue(run, kCfgCoproHigh);
  form.lblBlank[kBoxCopro1].Caption = "Copro " + run.CoproLowStd;
  form.lblBlank[kBoxCopro1 + 1].Caption = "Copro " + run.CoproLowStd + " End";
  form.lblBlank[kBoxCopro2].Caption = "Copro " + run.CoproHighStd;
  form.lblBlank[kBoxCopro2 + 1].Caption = "Copro " + run.CoproHighStd + " End";
  form.lblStaInfo[kStaCopro1].Caption = "Ave" + run.CoproLowStd;
  form.lblStaInfo[kStaCopro2].Caption = "Ave" + run.CoproHighStd;
}

// The placeholder keeps the backup folder from being empty: an empty one counts as missing.
void CheckLocalBackup(Kelp& kelp) {
  Disk& disk = kelp.platform.disk();
  std::string& folder = kelp.run.BackupDir;
  folder = WithBackslash(CfgValue(kelp.run, kCfgBackupDir));
  if (disk.Exists(folder + "Readme.txt")) return;
  bool created = false;
  try {
    created = disk.MakeFolder(folder);
    if (created)
      disk.Replace(folder + "Readme.txt",
                   "Do not delete this file, it is used as a placeholder for kelp.exe.\r\n");
  } catch (const FileError&) {
    created = false;
  }
  if (created) return;
  Tell(kelp, " Kelp Local Backup dir:" + folder + " does not contain a readme.txt file. Click OK to fix.",
       "Backup path & file not found.", Icon::Critical);
  disk.Replace(folder + "readme.txt", "Necessary file position holder, do not delete or move!\r\n");
}

void FillOperators(Kelp& kelp) {
  const std::vector<std::string> initials = Words(CfgValue(kelp.run, kCfgInitials));
  kelp.frmAcquire.Combo1.List = initials;
  kelp.frmLogin = FrmLogin();
  kelp.frmLogin.Combo1.List = initials;
  if (!initials.empty()) kelp.frmLogin.Combo1.Text = initials.front();
}

void TakeProcNum(Kelp& kelp) {
  std::string& box = kelp.frmAcquire.txtStaInfo[kStaProcNum].Text;
  kelp.run.ProcNum = NextProcNum(box);
  box = kelp.run.ProcNum;
}

void TakeReadSettings(RunState& run) {
  run.ReadsToAverage = CfgInt16(run, kCfgReadsToAverage);
  SizeReadBuffer(run);
  run.MinReads = CfgInt16(run, kCfgMinReads);
}

// Each step is carried out even when one before it failed: what can be set up is set up. Returns what
// the first failure was, or "".
std::string SetUp(Kelp& kelp) {
  RunState& run = kelp.run;
  const std::function<void()> steps[] = {
      [&] { ResetRun(kelp); },
      [&] { kelp.frmAcquire.Frame1.Caption = "Fluorometer " + CfgValue(run, kCfgFluorometer); },
      [&] { kelp.dlgRunRem = DlgRunRem(); },
      [&] { FillHeaderBoxes(kelp); },
      [&] { TakeReadSettings(run); },
      [&] { TakeProcNum(kelp); },
      [&] { TakeStandards(kelp); },
      [&] { run.ReadInterval = CfgInt16(run, kCfgReadInterval); },
      [&] { CheckLocalBackup(kelp); },
      [&] { FillOperators(kelp); },
  };
  std::string failure;
  for (const auto& step : steps) {
    try {
      step();
    } catch (const RunTimeError& error) {
      if (failure.empty()) failure = error.what();
    }
  }
  return failure;
}

// The words of the port failure serve for any failure of the set-up, whose reason stands in the title; a
// positive number has its leading blank here.
void TellSetUpFailure(Kelp& kelp, const std::string& failure) {
  SetStatus(kelp, failure);
  const std::string port = Fixed(CfgNumber(kelp.run, kCfgComport), 0);
  Tell(kelp,
       std::string(" CommPort") + (port.starts_with('-') ? "" : " ") + port +
           " is not talking, fix then restart.",
       failure);
}

}  // namespace

bool ClaimDrives(Kelp& kelp) {
  kelp.platform.disk().MakeFolder("c:\\kelp");
  if (kelp.platform.disk().Claim("c:\\kelp\\kelp.lck")) return true;
  Tell(kelp,
       "Another copy of KElp is running on these drives, and both would write into the same files. Go on "
       "there, or quit it and try again.",
       "KElp is running already!", Icon::Critical);
  return false;
}

void frmAcquire_Load(Kelp& kelp) {
  // A dialog of the run before would stay as a window that nothing belongs to.
  for (Window* window :
       {&kelp.frmAcquire.Form, &kelp.frmWhatsNext.Form, &kelp.dlgRunRem.Form, &kelp.frmChangeStep.Form,
        &kelp.frmRecalc.Form, &kelp.frmCreateBase.Form, &kelp.frmProgress.Form})
    HideScreen(kelp, *window);
  kelp.frmAcquire = FrmAcquire();
  kelp.frmAcquire.Form.Loaded = true;
  SetStatus(kelp, "");  // an alarm outlives the screen's set-up
  kelp.Timer1.Enabled = false;
  kelp.loop = {.PortOpened = kelp.loop.PortOpened};
  const std::string failure = SetUp(kelp);
  if (!failure.empty()) TellSetUpFailure(kelp, failure);
  kelp.frmWhatsNext = FrmWhatsNext();
  frmWhatsNext_Load(kelp);
  kelp.record.CarriedOver = false;
  OfferUnfinished(kelp);
  frmLogin_Load(kelp);
}

}  // namespace kelp
