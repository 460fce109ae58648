// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/main_window.hpp"

#include "app/acquire_load.hpp"
#include "app/editor.hpp"
#include "core/captions.hpp"
#include "core/config.hpp"
#include "core/start_button.hpp"
#include "core/text.hpp"
#include "record/record.hpp"
#include "workflow/open_station.hpp"

namespace kelp {

namespace {

// The run time is cut at 20 characters at start-up and at 10 by the reload button.
void FillBoxes(Kelp& kelp, std::size_t runTimeWidth) {
  struct Row {
    CfgLine line;
    std::size_t width;
  };
  const Row rows[] = {
      {kCfgProcNum, 10}, {kCfgStation, 10}, {kCfgAnalyst, 10}, {kCfgRunDate, runTimeWidth}, {kCfgTube, 10}};
  for (int i = 0; i < kelp.frmMain.Text1.kCount; ++i)
    kelp.frmMain.Text1[i].Text = CfgValue(kelp.run, rows[i].line, rows[i].width);
  kelp.frmMain.LastTube = kelp.frmMain.Text1[4].Text;
}

void LaunchEditor(Kelp& kelp, const std::string& path) {
  const std::string trouble = kelp.platform.Launch("notepad " + path);
  if (!trouble.empty()) Tell(kelp, path + " could not be opened in the text editor: " + trouble);
}

void ViewDataFile(Kelp& kelp) {
  const auto chosen = kelp.platform.AskFile({"Chl Data Files (Chl*)|Chl*", kelp.run.DataOutPath});
  if (chosen) LaunchEditor(kelp, *chosen);
}

// The unfinished station may lie on another path or cruise than the configuration names by now.
void TakeChosenStation(Kelp& kelp) {
  RunState& run = kelp.run;
  const ChosenStation& chosen = *kelp.record.Chosen;
  run.ProcNum = chosen.ProcNum;
  kelp.frmAcquire.txtStaInfo[kStaProcNum].Text = run.ProcNum;
  run.CruiseID = chosen.CruiseID;
  run.BaseFile = chosen.BaseFile;
  run.DataOutPath = chosen.BaseFile.substr(0, chosen.BaseFile.rfind('\\') + 1);
}

void RunSamples(Kelp& kelp) {
  if (!ClaimDrives(kelp)) return;
  HideScreen(kelp, kelp.frmMain.Form);
  frmAcquire_Load(kelp);
}

void ReloadConfig(Kelp& kelp) {
  LoadConfig(kelp);
  FillBoxes(kelp, 10);
  TakeLastStation(kelp.run);
  TellConfigTroubles(kelp);
  Tell(kelp, "New kelp.cfg loaded.");
}

}  // namespace

void FrmMain_Load(Kelp& kelp) {
  try {
    LoadConfig(kelp);
  } catch (const RunTimeError& error) {
    // The main window comes up all the same: from there the file can be mended and loaded again.
    ReportError(kelp, error);
  }
  FillBoxes(kelp, 20);
  TakeLastStation(kelp.run);
  TellConfigTroubles(kelp);
  ShowScreen(kelp, kelp.frmMain.Form);
}

void QuitFromMain(Kelp& kelp) {
  if (AskRisky(kelp, "Do you want to Quit? Y/N", "Exit the Program?", Icon::Exclamation,
               Buttons::YesNoCancel) &&
      MayLeave(kelp))
    EndProgram(kelp);
}

void FrmMain_Command1_Click(Kelp& kelp, int index) {
  switch (index) {
    case 0: RunSamples(kelp); break;
    case 1: frmEditCFG_Load(kelp); break;
    case 2: ViewDataFile(kelp); break;
    case 3: LaunchEditor(kelp, kelp.run.DataOutPath + kelp.run.CruiseID + "blnk"); break;
    case 4: QuitFromMain(kelp); break;
    case 5: ReloadConfig(kelp); break;
    default: break;
  }
}

void frmLogin_Load(Kelp& kelp) {
  HideScreen(kelp, kelp.frmAcquire.Form);
  ShowScreen(kelp, kelp.frmLogin.Form);
  kelp.Focus = {"frmLogin", "Combo1"};
}

void cmdOK_Click(Kelp& kelp) {
  FrmLogin& form = kelp.frmLogin;
  RunState& run = kelp.run;
  if (form.Combo1.Text.empty()) {
    Tell(kelp, "Invalid User Name, try again!", "Login");
    kelp.Focus = {"frmLogin", "Combo1"};
    return;
  }
  const std::string initials = form.Combo1.Text;
  form.LoginSucceeded = true;
  run.DataOutPath = WithBackslash(CfgValue(run, kCfgDataPath));
  run.BaseFile = run.DataOutPath + "chl" + run.ProcNum;
  if (kelp.record.Chosen) TakeChosenStation(kelp);
  run.LoginInitials = initials;
  LoadBaseFile(kelp, run.BaseFile);
  kelp.frmAcquire.Combo1.Text = initials;
  SetButton(kelp, {.Caption = captions::kStart});
  UnloadScreen(kelp, kelp.frmLogin);
}

void cmdCancel_Click(Kelp& kelp) {
  if (MayLeave(kelp)) EndProgram(kelp);
}

}  // namespace kelp
