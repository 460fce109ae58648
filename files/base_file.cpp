#include "files/base_file.hpp"

#include <algorithm>

#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "files/ctd_import.hpp"
#include "files/database_csv.hpp"
#include "files/grid_layout.hpp"
#include "files/keeping_station.hpp"
#include "files/kept_copy.hpp"
#include "files/report.hpp"
#include "files/station_lock.hpp"
#include "files/table_field.hpp"
#include "record/record.hpp"

namespace kelp {

namespace {

constexpr std::size_t kHeaderLines = 5;

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

// The rows of the station end where the report of an earlier save begins.
std::size_t TableEnd(const std::vector<std::string>& lines) {
  if (lines.size() < kHeaderLines) return lines.size();
  auto end = std::find(lines.begin() + kHeaderLines, lines.end(), kReportBanner);
  if (end == lines.end()) return lines.size();
  while (end != lines.begin() && Trim(*(end - 1)).empty()) --end;
  return static_cast<std::size_t>(end - lines.begin());
}

void FillTable(Kelp& kelp, const std::string& path, const std::vector<std::string>& lines, std::size_t end) {
  RunState& run = kelp.run;
  if (end < kHeaderLines)
    throw FileError(path, "has " + std::to_string(end) +
                              " lines, but a base file begins with 5 header lines; "
                              "create the station anew or choose another file");
  run.SampTbl(0, 0) = lines[0];
  run.SampTbl(1, 0) = lines[1];
  for (std::size_t i = 2; i < end; ++i) {
    try {
      // A blank line takes its row and leaves it empty.
      if (!Trim(lines[i]).empty()) SplitToRow(run, lines[i], static_cast<int>(i));
      if (i >= static_cast<std::size_t>(StationTable::kRows))
        static_cast<void>(run.SampTbl(static_cast<int>(i), 0));
    } catch (const RunTimeError& error) {
      throw RunTimeError(error.kind(), path + ", line " + std::to_string(i + 1) + ": " + error.what());
    }
  }
  run.SampCount = static_cast<long long>(end) - 5;
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
  kelp.run.BeginBlankText.clear();
  kelp.run.EndBlankText.clear();
  kelp.frmAcquire.txtStaInfo[kStaAveBlank].Text.clear();
  for (int box = kBoxBeginBlank; box < kBoxAutoCriterion; ++box) kelp.frmAcquire.txtBlank[box].Text = "0";
}

// A bad CTD file ends its import, not the station: what it would have filled in can be typed.
void ImportCtd(Kelp& kelp) {
  kelp.run.CastType = CfgValue(kelp.run, kCfgCastType);
  for (const auto import : {ImportCtdHeader, ImportCtdMark}) {
    try {
      import(kelp);
    } catch (const RunTimeError& error) {
      ReportError(kelp, error);
    }
  }
}

// True for a station that brings values of its own.
bool ReadBaseFile(Kelp& kelp, const std::string& path) {
  RunState& run = kelp.run;
  std::string& station = kelp.frmAcquire.txtStaInfo[kStaLineSta].Text;
  const std::vector<std::string> lines = Lines(kelp.platform.disk().Read(path));
  const std::size_t end = TableEnd(lines);
  FillTable(kelp, path, lines, end);
  // The data of a run anew from a kept copy are appended to the files of the station.
  SetPaths(kelp, StationPath(path));
  station = Trim(run.SampTbl(0, 0));
  run.SampNum = 1;
  run.ResultsSaved = false;
  run.Unfinished = {};
  run.Resume = ResumeAt::Nothing;
  ++run.StationLoads;
  const bool hasReport = end < lines.size();
  const bool reopened = HasResults(run);
  if (hasReport || reopened) TakeBackCells(run);
  LayOutGrid(kelp, reopened);
  ImportCtd(kelp);
  if (hasReport || reopened) ForgetBlanksAndCopros(kelp);
  if (hasReport) {
    // What the operator saved stands above what the CTD files say.
    station = Trim(run.SampTbl(0, 0));
    TakeReportHeading(kelp, {lines.begin() + static_cast<std::ptrdiff_t>(end), lines.end()});
  }
  const bool restored = OfferRestore(kelp);
  ShowScreen(kelp, "frmAcquire");
  if (reopened && !restored && AnySampleRead(kelp)) {
    UnloadScreen(kelp, "frmRecalc", kelp.frmRecalc);
    ShowScreen(kelp, "frmRecalc");
  }
  return hasReport || reopened || restored;
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
  kelp.frmAcquire.Command1.Caption = "&Start";
  kelp.loop.Running = false;
  kelp.Timer1.Enabled = false;
}

}  // namespace

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
    if (found == Found::Nothing) ShowScreen(kelp, "frmAcquire");
    RefreshStandardDisplays(kelp);
  });
  return saved;
}

}  // namespace kelp
