// SPDX-License-Identifier: GPL-3.0-or-later
// The create screen's work: writes a base file from the sample log sheet's values.
#include "core/captions.hpp"
#include "core/config.hpp"
#include "core/date_time.hpp"
#include "core/numbers.hpp"
#include "core/start_button.hpp"
#include "core/text.hpp"
#include "files/base_file.hpp"
#include "workflow/keeping_station.hpp"
#include "workflow/open_station.hpp"

namespace kelp {

namespace {

enum CreateBox { kProcNum = 0, kLineSta = 1, kCount = 2, kBottle = 3, kVial = 4, kDate = 5, kTime = 6 };

void CopyToHeaderBoxes(Kelp& kelp) {
  const auto& box = kelp.frmCreateBase.Text1;
  auto& header = kelp.frmAcquire.txtStaInfo;
  header[kStaProcNum].Text = kelp.run.ProcNum;
  header[kStaLineSta].Text = box[kLineSta].Text;
  header[kStaBottle].Text = box[kBottle].Text;
  header[kStaVial].Text = box[kVial].Text;
  const auto orTyped = [](const std::string& own, const std::string& typed) {
    return own.empty() ? typed : own;
  };
  header[kStaFiltDate].Text = orTyped(OwnDate(box[kDate].Text), box[kDate].Text);
  header[kStaFiltTime].Text = orTyped(OwnTime(box[kTime].Text), box[kTime].Text);
  kelp.run.BottleEdited = true;
  kelp.run.VialEdited = !Trim(box[kVial].Text).empty();
}

void CreateStation(Kelp& kelp, const std::string& procNum) {
  RunState& run = kelp.run;
  run.ProcNum = PaddedProcNum(procNum);
  run.BaseFile = run.DataOutPath + "chl" + run.ProcNum;
  const std::string station = Upper(kelp.frmCreateBase.Text1[kLineSta].Text);
  if (Contains(station, "LAB") || Contains(station, "CAL")) run.LabCalRun = true;
  if (kelp.platform.disk().Exists(run.BaseFile) &&
      !AskRisky(kelp, "File " + run.BaseFile + " already present!  Overwrite?", "File Found!  Overwrite?"))
    return;
  if (!MayOpenStation(kelp, run.BaseFile)) return;
  const auto& box = kelp.frmCreateBase.Text1;
  WriteNewBaseFile(kelp, {box[kLineSta].Text, box[kCount].Text, box[kBottle].Text});
  CopyToHeaderBoxes(kelp);
  ShowScreen(kelp, kelp.frmAcquire.Form);
  UnloadScreen(kelp, kelp.frmCreateBase);
  LoadBaseFile(kelp, run.BaseFile);
}

}  // namespace

void ShowCreateBase(Kelp& kelp) {
  SetButton(kelp, {.Caption = captions::kStart, .Text = "Load Sample then press <spacebar>"});
  kelp.frmCreateBase = FrmCreateBase{.Form = kelp.frmCreateBase.Form};
  auto& box = kelp.frmCreateBase.Text1;
  box[kProcNum].Text = kelp.run.ProcNum;
  box[kBottle].Text = CfgValue(kelp.run, kCfgStartBottle);
  box[kVial].Text = std::to_string(kelp.run.TubeNum + 1);
  CheckCreateBase(kelp);
  ShowScreen(kelp, kelp.frmCreateBase.Form);
}

void CreateBox_LostFocus(Kelp& kelp, int index) {
  std::string& text = kelp.frmCreateBase.Text1[index].Text;
  const std::string own = index == kDate ? OwnDate(text) : index == kTime ? OwnTime(text) : "";
  if (!own.empty()) text = own;
}

void CheckCreateBase(Kelp& kelp) {
  auto& box = kelp.frmCreateBase.Text1;
  box[kCount].Problem = Val(box[kCount].Text) >= 1 ? "" : "no number: the station will have no samples";
  box[kDate].Problem = DateProblem(box[kDate].Text);
  box[kTime].Problem = TimeProblem(box[kTime].Text);
}

void CreateBaseFile(Kelp& kelp) {
  const auto& box = kelp.frmCreateBase.Text1;
  if (Val(box[kCount].Text) > kMaxSamples) {
    Tell(kelp, "Max number of samples is 100!");
    return;
  }
  const std::string typed(Trim(box[kProcNum].Text));
  if (!UsableProcNum(typed)) {
    Tell(kelp, "ProcNum \"" + typed + "\" can't be part of a file name. Type a number such as 007 or 801.");
    return;
  }
  KeepingStation(kelp, [&] { CreateStation(kelp, typed); });
}

}  // namespace kelp
