// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/base_file.hpp"

#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/start_button.hpp"
#include "core/text.hpp"
#include "files/ctd_import.hpp"
#include "files/database_csv.hpp"
#include "files/grid_layout.hpp"
#include "files/keeping_station.hpp"
#include "files/kept_copy.hpp"
#include "files/report.hpp"
#include "files/station_lock.hpp"
#include "files/station_text.hpp"
#include "files/table_field.hpp"
#include "record/record.hpp"

namespace kelp {

namespace {

enum class Found { File, Nothing, CreateScreen };

// The number of a file that the operator chose: its last three characters, as all stations have them.
std::string ProcNumOf(const std::string& path) {
  const std::string station = StationPath(path);
  std::string procNum(Right(station, 3));
  if (!UsableProcNum(procNum) || Contains(station.substr(station.rfind('\\') + 1), "."))
    throw FileError(
        path, "is no base file: its name is to end in a processing number; choose a file such as chl007");
  return procNum;
}

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
      run.ProcNum = ProcNumOf(path);
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

void FillTable(RunState& run, const StationText& text) {
  run.SampTbl = text.Table;
  run.SampCount = text.Samples();
}

void SetPaths(Kelp& kelp, const std::string& path) {
  RunState& run = kelp.run;
  Disk& disk = kelp.platform.disk();
  run.CsvFile = path + ".csv";
  run.RawFile = path + ".raw";
  run.PrnFile = path + ".prn";
  run.DbCsvFile = CruiseCsvPath(run);
  // An empty backup folder counts as missing: the placeholder file shows that it is the right one.
  const bool backup = disk.AnyFileIn(run.BackupDir);
  run.TmpFile = (backup ? run.BackupDir : "C:\\kelp\\" + run.CruiseID) + "chl" + run.ProcNum + ".tmp";
  run.PrnBackupFile = (backup ? run.BackupDir : "C:\\kElp\\" + run.CruiseID) + "chl" + run.ProcNum + ".prn";
  AppendUnderHead(disk, run.CsvFile, std::string(kReadLogHeader) + "\r\n", "");
}

// A non-empty Rb field in the first sample's row marks a station that was saved with results. The field
// of a first sample without Rb is "-".
bool HasResults(const RunState& run) { return !run.SampTbl(StationTable::kFirstSampleRow, kTblRb).empty(); }

bool AnySampleRead(const Kelp& kelp) {
  for (int sample = 1; sample <= kelp.run.SampCount; ++sample)
    for (const int col : {kColRb, kColRa})
      if (!kelp.frmAcquire.datalog.Text(sample, col).empty()) return true;
  return false;
}

// A saved station gives back its cells as they were before they were written as blank-free fields.
void TakeBackCells(RunState& run) {
  for (int row = 2; row < run.SampCount + StationTable::kFirstSampleRow; ++row)
    for (int col = 0; col < StationTable::kCols; ++col)
      run.SampTbl(row, col) = CellFromField(run.SampTbl(row, col));
}

// What was read for the station before is no value of one that brings its own.
void ForgetBlanksAndCopros(Kelp& kelp) {
  RunState& run = kelp.run;
  for (std::string* text : {&run.BeginBlankText, &run.EndBlankText, &run.LowStdText, &run.HighStdText})
    text->clear();
  kelp.frmAcquire.txtStaInfo[kStaAveBlank].Text.clear();
  for (int box = kBoxBeginBlank; box < kBoxAutoCriterion; ++box) kelp.frmAcquire.txtBlank[box].Text = "0";
}

// The station has just come: what was read, and what is under way, is none of its values.
void BeginStation(Kelp& kelp) {
  RunState& run = kelp.run;
  ++run.StationLoads;
  ++run.Stores;
  kelp.Note = {.Way = How::Loaded};
  run.SampNum = 1;
  run.ResultsSaved = false;
  run.Unfinished = {};
  run.Resume = ResumeAt::Nothing;
  run.RunDate.clear();
  run.ReportStr.clear();
  run.RbReading = run.RaReading = 0;
  run.RaAccepted = run.ReadFlag = run.Loaded = false;
  run.ReplaceSample = 0;
  ClearRawReads(run);
  // A prompt to load something stands; a reading of the station before does not.
  const bool prompts = ButtonRow(kelp).Does == Phase::Load;
  if (!prompts) SetButton(kelp, {.Caption = "&Start", .Text = FrmAcquire().Text4.Text});
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

// What the recalculation will use, beside the two boxes that it takes.
void TellStationIn(FrmRecalc& dialog, const Kelp& kelp) {
  dialog.Text1[2].Text = kelp.frmAcquire.txtBlank[kBoxEndBlank].Text;
  dialog.Text1[3].Text = kelp.frmAcquire.txtStaInfo[kStaFiltrVol].Text;
  dialog.Text1[4].Text = kelp.frmAcquire.txtStaInfo[kStaExtractVol].Text;
}

// True for a station that brings values of its own.
bool ReadBaseFile(Kelp& kelp, const std::string& path) {
  RunState& run = kelp.run;
  std::string& station = kelp.frmAcquire.txtStaInfo[kStaLineSta].Text;
  const StationText text = SplitStationText(path, kelp.platform.disk().Read(path));
  FillTable(run, text);
  // The data of a run anew from a kept copy are appended to the files of the station.
  SetPaths(kelp, StationPath(path));
  station = Trim(run.SampTbl(0, 0));
  BeginStation(kelp);
  const bool hasReport = !text.Report.empty();
  const bool reopened = HasResults(run);
  if (hasReport || reopened) TakeBackCells(run);
  const bool ownHeader = hasReport || reopened;
  if (run.Reopened && !ownHeader) {
    // Its base file is run anew: what the first run read and was calculated with is over.
    ForgetBlanksAndCopros(kelp);
    TakeHeaderOfConfig(kelp);
  }
  run.Reopened = ownHeader;
  LayOutGrid(kelp, reopened);
  ImportCtd(kelp);
  if (ownHeader) ForgetBlanksAndCopros(kelp);
  if (hasReport) {
    // What the operator saved stands above what the CTD files say.
    station = Trim(run.SampTbl(0, 0));
    TakeReportHeading(kelp, text.Report);
  }
  SetStatus(kelp, "");
  TellConfigTroubles(kelp);
  const bool restored = OfferRestore(kelp);
  // The step that was restored goes on from "&Start", whatever prompt stood there.
  if (restored) SetButton(kelp, {.Caption = "&Start"});
  ShowScreen(kelp, "frmAcquire");
  if (reopened && !restored && AnySampleRead(kelp)) {
    UnloadScreen(kelp, "frmRecalc", kelp.frmRecalc);
    TellStationIn(kelp.frmRecalc, kelp);
    ShowScreen(kelp, "frmRecalc");
  }
  return ownHeader || restored;
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
      {.Caption = "&Start",
       .Tip = "Click to Start",
       .Text = "No station is open. Click [Start] or press <Spacebar> to be asked for the base file again."});
  SetStatus(kelp, "No station is open: nothing can be measured.");
}

}  // namespace

void TakeHeaderOfConfig(Kelp& kelp) {
  auto& header = kelp.frmAcquire.txtStaInfo;
  header[kStaFluorometer].Text = CfgValue(kelp.run, kCfgFluorometer);
  header[kStaF].Text = CfgValue(kelp.run, kCfgMachineFactor);
  header[kStaTau].Text = CfgValue(kelp.run, kCfgAcidRatio);
  kelp.frmAcquire.Combo1.Text = kelp.run.LoginInitials;
}

void CloseStationFiles(RunState& run) {
  ClearTable(run);
  run.SampCount = 0;
  for (std::string* path : {&run.CsvFile, &run.RawFile, &run.PrnFile, &run.TmpFile, &run.PrnBackupFile})
    path->clear();
}

bool LoadBaseFile(Kelp& kelp, std::string& path) {
  bool saved = false;
  KeepingStation(kelp, [&] {
    CloseStationFiles(kelp.run);
    Found found = FindBaseFile(kelp, path);
    if (found == Found::File && !MayOpenStation(kelp, path)) found = Found::Nothing;
    if (found == Found::File) {
      saved = ReadBaseFile(kelp, path);
      HoldStation(kelp, path);
    } else {
      HoldNoStation(kelp);
    }
    if (found == Found::Nothing) {
      TellNoStation(kelp);
      ShowScreen(kelp, "frmAcquire");
    }
    RefreshStandardDisplays(kelp);
  });
  return saved;
}

}  // namespace kelp
