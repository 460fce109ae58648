// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/open_station.hpp"

#include "core/captions.hpp"
#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/start_button.hpp"
#include "files/base_file.hpp"
#include "files/ctd_import.hpp"
#include "files/grid_layout.hpp"
#include "files/kept_copy.hpp"
#include "files/station_lock.hpp"
#include "record/record.hpp"
#include "workflow/keeping_station.hpp"

namespace kelp {

namespace {

enum class Found { File, Nothing, CreateScreen };

// A missing file: the operator creates it, searches, or steps on to the next processing number.
Found FindBaseFile(Kelp& kelp, std::string& path) {
  RunState& run = kelp.run;
  while (!kelp.platform.disk().Exists(path)) {
    const Answer answer =
        kelp.platform.Ask({path + " not found!  Yes to create file, No to search, Cancel to load next sta.",
                           "Base File Not Found!", Buttons::YesNoCancel});
    if (answer == Answer::Yes) {
      ShowCreateBase(kelp);
      return Found::CreateScreen;
    }
    if (answer == Answer::No) {
      const auto chosen = kelp.platform.AskFile({"Chl Files (chl*)|chl*", run.DataOutPath});
      if (!chosen) return Found::Nothing;
      path = *chosen;
      run.ProcNum = ProcNumOfPath(path);
      kelp.frmAcquire.txtStaInfo[kStaProcNum].Text = run.ProcNum;
      return Found::File;
    }
    if (answer != Answer::Cancel) return Found::Nothing;
    run.ProcNum = NextProcNum(run.ProcNum);
    kelp.frmAcquire.txtStaInfo[kStaProcNum].Text = run.ProcNum;
    path = run.DataOutPath + "chl" + run.ProcNum;
  }
  return Found::File;
}

// A bad CTD file ends its import, not the station: what it would have filled in can be typed.
void ImportCtd(Kelp& kelp) {
  kelp.run.CastType = CfgValue(kelp.run, kCfgCastType);
  for (const auto import : {ImportCtdHeader, ImportCtdMark}) {
    try {
      import(kelp);
    } catch (const RunTimeError& error) {
      // What stood before the fault is taken.
      ++kelp.run.Stores;
      ReportError(kelp, error);
    }
  }
}

bool AnySampleRead(const Kelp& kelp) {
  for (int sample = 1; sample <= kelp.run.SampCount; ++sample)
    for (const int col : {kColRb, kColRa})
      if (!kelp.frmAcquire.datalog.Text(sample, col).empty()) return true;
  return false;
}

// The dialog tells what the recalculation will use, beside the two boxes that it takes.
void OfferRecalculation(Kelp& kelp) {
  UnloadScreen(kelp, kelp.frmRecalc);
  auto& box = kelp.frmRecalc.Text1;
  box[2].Text = kelp.frmAcquire.txtBlank[kBoxEndBlank].Text;
  box[3].Text = kelp.frmAcquire.txtStaInfo[kStaFiltrVol].Text;
  box[4].Text = kelp.frmAcquire.txtStaInfo[kStaExtractVol].Text;
  ShowScreen(kelp, kelp.frmRecalc.Form);
}

// True for a station that brings values of its own.
bool OpenBaseFile(Kelp& kelp, const std::string& path) {
  const LoadedStation loaded = ReadBaseFile(kelp, path);
  ImportCtd(kelp);
  TakeSavedValues(kelp, loaded);
  SetStatus(kelp, "");
  TellConfigTroubles(kelp);
  const bool restored = OfferRestore(kelp);
  // The step that was restored goes on from "&Start", whatever prompt stood there.
  if (restored) SetButton(kelp, {.Caption = captions::kStart});
  ShowScreen(kelp, kelp.frmAcquire.Form);
  if (loaded.HasResults && !restored && AnySampleRead(kelp)) OfferRecalculation(kelp);
  return loaded.WasSaved() || restored;
}

void RefreshStandardDisplays(Kelp& kelp) {
  FrmAcquire& form = kelp.frmAcquire;
  form.txtStaInfo[kStaCopro1].Text = CfgValue(kelp.run, kCfgCoproLowAve);
  form.txtStaInfo[kStaCopro2].Text = CfgValue(kelp.run, kCfgCoproHighAve);
}

// Without a station there is nothing that could be saved under another one's number, and a reading that
// went on would belong nowhere.
void HoldNoStation(Kelp& kelp) {
  kelp.run.SampNum = 1;
  ClearGrid(kelp.frmAcquire.datalog);
  kelp.loop.Running = false;
  kelp.Timer1.Enabled = false;
}

// The way back to the question for the base file is the button.
void TellNoStation(Kelp& kelp) {
  SetButton(
      kelp,
      {.Caption = captions::kStart,
       .Tip = "Click to Start",
       .Text = "No station is open. Click [Start] or press <Spacebar> to be asked for the base file again."});
  SetStatus(kelp, "No station is open: nothing can be measured.");
}

}  // namespace

bool MayOpenStation(Kelp& kelp, const std::string& baseFile) {
  const auto holder = OtherHolder(kelp, baseFile);
  if (!holder) return true;
  Message question{"Station " + StationPath(baseFile) + " is open on " + holder->Machine + " (user " +
                       holder->User + ", " + holder->At +
                       "). Two machines that run it write into the same files. Open it all the same? Y/N",
                   "Station is open elsewhere", Buttons::YesNo, Icon::Critical};
  question.DefaultNo = true;
  if (!AskYes(kelp, question)) return false;
  OverrideHolder(kelp, baseFile);
  return true;
}

bool LoadBaseFile(Kelp& kelp, std::string& path) {
  bool saved = false;
  KeepingStation(kelp, [&] {
    CloseStationFiles(kelp.run);
    Found found = FindBaseFile(kelp, path);
    if (found == Found::File && !MayOpenStation(kelp, path)) found = Found::Nothing;
    if (found == Found::File) {
      saved = OpenBaseFile(kelp, path);
      HoldStation(kelp, path);
    } else {
      HoldNoStation(kelp);
    }
    if (found == Found::Nothing) {
      TellNoStation(kelp);
      ShowScreen(kelp, kelp.frmAcquire.Form);
    }
    RefreshStandardDisplays(kelp);
  });
  return saved;
}

}  // namespace kelp
