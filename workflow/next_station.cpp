// SPDX-License-Identifier: GPL-3.0-or-later
// What follows a station or its last sample: the next station, an added sample.
#include "core/captions.hpp"
#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/places.hpp"
#include "core/start_button.hpp"
#include "core/steps.hpp"
#include "core/text.hpp"
#include "files/base_file.hpp"
#include "files/grid_layout.hpp"
#include "workflow/keeping_station.hpp"
#include "workflow/open_station.hpp"

namespace kelp {

namespace {

void MoveEndValues(Kelp& kelp) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  // Without an end blank the begin blank goes on to serve.
  if (!run.EndBlankText.empty()) {
    run.BeginBlankText = run.EndBlankText;
    form.txtBlank[kBoxBeginBlank].Text = run.EndBlankText;
    form.txtStaInfo[kStaAveBlank].Text.clear();
  }
  run.EndBlankText.clear();
  form.txtBlank[kBoxEndBlank].Text = "0";
  for (const int box : {kBoxCopro1, kBoxCopro2}) {
    // A copro that was skipped at the end has no value that the next station could begin with.
    const double end = Val(form.txtBlank[box + 1].Text);
    if (end != 0 && end > -99) form.txtBlank[box].Text = form.txtBlank[box + 1].Text;
    form.txtBlank[box + 1].Text = "0";
  }
  SetStatus(kelp, "End values moved to beginning");
}

// Nothing of the station that is closed reaches the next one but what is told to: what a station brought in
// its own report ends with it, and the next one has the configuration's and the login's.
void LeaveStation(Kelp& kelp) {
  RunState& run = kelp.run;
  FrmAcquire& form = kelp.frmAcquire;
  if (run.Reopened) TakeHeaderOfConfig(kelp);
  run.Reopened = false;
  for (const int box : {kStaFiltDate, kStaFiltTime}) {
    form.txtStaInfo[box].Text.clear();
    form.txtStaInfo[box].Problem.clear();
  }
  run.CtdDate.clear();
  run.CtdTime.clear();
  run.CastType.clear();
  run.MarkTime = {};
  run.LowStdText.clear();
  run.HighStdText.clear();
  for (int box = kBoxLowStandard; box <= kBoxHighStandard + 1; ++box) form.txtBlank[box].Text = "0";
  form.Option1[kStepStandard].Caption = FrmAcquire().Option1[kStepStandard].Caption;
  // What was typed as the first vial or bottle held for the station it was typed in.
  run.VialEdited = run.BottleEdited = false;
}

Counter16 NextBottle(const Kelp& kelp) {
  const int last = kelp.run.SampCount;
  if (last == 0) return ToInt16(CfgNumber(kelp.run, kCfgStartBottle));
  return static_cast<long long>(ToInt16(Val(kelp.frmAcquire.datalog.Text(last, kColBottle)))) + 1;
}

}  // namespace

void OpenNextStation(Kelp& kelp) {
  RunState& run = kelp.run;
  auto& header = kelp.frmAcquire.txtStaInfo;
  KeepingStation(kelp, [&] {
    const std::string typed(Trim(header[kStaProcNum].Text));
    run.ProcNum = run.ProcNumEdited ? PaddedProcNum(std::to_string(ToInt16(Val(typed)))) : NextProcNum(typed);
    header[kStaProcNum].Text = run.ProcNum;
    LeaveStation(kelp);
    // An unfinished station that was gone on with may lie elsewhere; the next one is the configuration's.
    run.DataOutPath = WithBackslash(CfgValue(run, kCfgDataPath));
    run.CruiseID = CfgValue(run, kCfgCruise);
    run.SampNum = 1;
    SetStep(kelp, steps::kBlank);
    run.LabCalRun = false;
    // The capital C is as the files are named here; names are found without regard to letter case.
    run.BaseFile = run.DataOutPath + "Chl" + run.ProcNum;
    const bool saved = LoadBaseFile(kelp, run.BaseFile);
    // A station that was run already brings its own blanks and copros.
    if (!saved) {
      MoveEndValues(kelp);
      kelp.record.CarriedOver = true;
    }
    kelp.frmAcquire.Option1[kStepBlank].Caption = captions::kBeginBlank;
    kelp.frmAcquire.Option1[kStepCopros].Caption = captions::kCopros;
    run.ProcNumEdited = false;
    run.ResultsSaved = false;
  });
}

void AddSample(Kelp& kelp) {
  RunState& run = kelp.run;
  if (run.SampCount >= kMaxSamples) {
    Tell(kelp, "100 Samples is max!  Split your samples into separate runs...");
    return;
  }
  const Counter16 bottle = NextBottle(kelp);
  ++run.SampCount;
  run.SampNum = run.SampCount;
  const int row = SampleRow(run);
  for (int col = 0; col < StationTable::kCols; ++col) run.SampTbl(row, col).clear();
  run.SampTbl(row, kTblCode) = "2";
  run.SampTbl(row, kTblBottle) = Padded(std::to_string(int{bottle}), 2, "L", "0");
  run.SampTbl(row, kTblDepth) = "3";
  run.SampTbl(row, kTblFilV) = CfgValue(run, kCfgFiltrVol);
  run.SampTbl(row, kTblExV) = CfgValue(run, kCfgExtractVol);
  LayOutAddedSample(kelp);
  ++run.Stores;
  kelp.Note = {.Way = How::Loaded};
  // Not before: where no sample can be added the step under way stays.
  SetStep(kelp, steps::kAdded);
  SetButton(kelp, {.Caption = captions::kLoadAddedSample,
                   .Tip = "Load Sample, when stable <Click>",
                   .Text = "Load Sample, when stable <Click>",
                   .Trace = kTraceMagenta});
  SetStatus(kelp, "Sample " + std::to_string(int{run.SampNum}) + ", bottle " + BottleOf(kelp, run.SampNum) +
                      ", is added.");
}

}  // namespace kelp
