// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/base_file.hpp"

#include "core/captions.hpp"
#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/start_button.hpp"
#include "core/text.hpp"
#include "files/database_csv.hpp"
#include "files/grid_layout.hpp"
#include "files/kept_copy.hpp"
#include "files/report.hpp"
#include "files/table_field.hpp"
#include "files/table_lines.hpp"

namespace kelp {

namespace {

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
  if (!prompts) SetButton(kelp, {.Caption = captions::kStart, .Text = FrmAcquire().Text4.Text});
}

// The loader splits on runs of blanks, so the spacing is part of the format.
std::string TextOf(const RunState& run, const NewStation& station) {
  const std::string count = OneField(Trim(station.Count), false);
  std::string text =
      OneField(Trim(station.LineSta), false) + "\r\n" + CfgValue(run, kCfgFluorometer) + "\r\n";
  text += "0.0 0.0 0.0 0.0\r\n0.0 0.0 0.0 0.0\r\n";
  text += NumberAndCount(run.ProcNum, count) + " " + CfgValue(run, kCfgMachineFactor) + " " +
          CfgValue(run, kCfgAcidRatio) + "\r\n";
  const double samples = Val(count);
  const Counter16 firstBottle = ToInt16(Val(station.FirstBottle));
  for (int i = 1; i <= samples; ++i) {
    const Counter16 bottle = firstBottle - 1 + i;
    text += "2 " + Padded(std::to_string(int{bottle}), 2, "L", "0") + "    3  " +
            CfgValue(run, kCfgFiltrVol) + " " + CfgValue(run, kCfgExtractVol) + " \r\n";
  }
  return text;
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

LoadedStation ReadBaseFile(Kelp& kelp, const std::string& path) {
  RunState& run = kelp.run;
  LoadedStation loaded{SplitStationText(path, kelp.platform.disk().Read(path))};
  FillTable(run, loaded.Text);
  // The data of a run anew from a kept copy are appended to the files of the station.
  SetPaths(kelp, StationPath(path));
  kelp.frmAcquire.txtStaInfo[kStaLineSta].Text = Trim(run.SampTbl(0, 0));
  BeginStation(kelp);
  loaded.HasResults = HasResults(run);
  const bool saved = loaded.WasSaved();
  if (saved) TakeBackCells(run);
  if (run.Reopened && !saved) {
    // Its base file is run anew: what the first run read and was calculated with is over.
    ForgetBlanksAndCopros(kelp);
    TakeHeaderOfConfig(kelp);
  }
  run.Reopened = saved;
  LayOutGrid(kelp, loaded.HasResults);
  return loaded;
}

void TakeSavedValues(Kelp& kelp, const LoadedStation& loaded) {
  if (loaded.WasSaved()) ForgetBlanksAndCopros(kelp);
  if (loaded.Text.Report.empty()) return;
  // What the operator saved stands above what the CTD files say.
  kelp.frmAcquire.txtStaInfo[kStaLineSta].Text = Trim(kelp.run.SampTbl(0, 0));
  TakeReportHeading(kelp, loaded.Text.Report);
}

void WriteNewBaseFile(Kelp& kelp, const NewStation& station) {
  const RunState& run = kelp.run;
  Disk& disk = kelp.platform.disk();
  const std::string text = TextOf(run, station);
  KeepResults(disk, run.BaseFile, kelp.platform.Now());
  disk.MakeFolder(run.DataOutPath);
  disk.Replace(run.BaseFile, text);
}

bool UsableProcNum(std::string_view procNum) {
  if (Trim(procNum).empty() || procNum.find_first_of("\\/:*?\"<>|.,") != std::string_view::npos) return false;
  for (const char c : procNum)
    if (static_cast<unsigned char>(c) < 32) return false;
  return true;
}

std::string ProcNumOfPath(const std::string& path) {
  const std::string station = StationPath(path);
  std::string procNum(Right(station, 3));
  if (!UsableProcNum(procNum) || Contains(station.substr(station.rfind('\\') + 1), "."))
    throw FileError(
        path, "is no base file: its name is to end in a processing number; choose a file such as chl007");
  return procNum;
}

}  // namespace kelp
