// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/result_writer.hpp"

#include "core/config.hpp"
#include "core/text.hpp"
#include "files/database_csv.hpp"
#include "files/grid_layout.hpp"
#include "files/html_report.hpp"
#include "files/kept_copy.hpp"
#include "files/report.hpp"
#include "files/station_values.hpp"
#include "files/table_lines.hpp"

namespace kelp {

namespace {

constexpr const char* kPrintStep = "printed report";

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

// A save that repeats one that failed goes on where that stopped, unless the data have changed since.
// The log goes on while the operator mends the trouble: the time of its last record is no change.
void GoOnWithUnfinished(RunState& run, const std::string& text) {
  const DateAndTime read = ReadAt(run);
  const std::string data = Replaced(text, read.Date + " " + read.Time, "");
  if (run.Unfinished.Data != data) run.Unfinished = {data, {}};
}

template <class Work>
void Once(RunState& run, const std::string& step, const Work& work) {
  if (run.Unfinished.Done.contains(step)) return;
  work();
  run.Unfinished.Done.insert(step);
}

void Print(Kelp& kelp, const std::vector<std::string>& report) {
  try {
    for (const std::string& line : report) kelp.platform.PrintLine(line);
  } catch (const RunTimeError&) {
    // The next try begins a new document.
    try {
      kelp.platform.EndDocument();
    } catch (const RunTimeError&) {
      // What the printer has is told already.
    }
    throw;
  }
}

// The filtration's date and time as they stand in the boxes, where the operator may have changed them.
// The database's time column takes no letters: a time of the afternoon is written in 24 hours, and what is no
// time loses the half of the day.
void NormaliseCtdTime(Kelp& kelp) {
  RunState& run = kelp.run;
  const auto& header = kelp.frmAcquire.txtStaInfo;
  run.CtdDate = header[kStaFiltDate].Text;
  run.CtdTime = header[kStaFiltTime].Text;
  const std::string own = OwnTime(run.CtdTime);
  if (!own.empty()) run.CtdTime = own;
  for (const char* half : {" AM", " PM", "AM", "PM"}) run.CtdTime = Replaced(run.CtdTime, half, "");
}

// When a station was read goes on while its log does: that alone makes no new results.
std::string MarkOfRows(const Kelp& kelp) {
  std::string rows;
  for (const std::string_view header : {kCruiseCsvHeader, kStationCsvHeader}) {
    std::string columns(header);
    for (const char* when : {"ReadDate,", "ReadTime,", "HoursToRun,"}) columns = Replaced(columns, when, "");
    rows += DatabaseRows(kelp, columns);
  }
  return MarkOf(rows);
}

// Rows can't be taken back from the database files, so that the same ones are not appended twice.
void AppendToDatabase(Kelp& kelp) {
  const std::string mark = MarkOfRows(kelp);
  std::string& saved = kelp.record.SavedRows;
  if (saved == mark) {
    SetStatus(kelp, "Station " + kelp.run.ProcNum +
                        " was saved with these results before: no rows were added to the database files.");
    return;
  }
  const auto append = [&](const std::string& path, std::string_view header) {
    Once(kelp.run, path,
         [&] { AppendDatabaseRows(kelp.platform.disk(), path, header, DatabaseRows(kelp, header)); });
  };
  append(CruiseCsvPath(kelp.run), kCruiseCsvHeader);
  append(StationCsvPath(kelp.run), kStationCsvHeader);
  if (!saved.empty())
    SetStatus(kelp, "Station " + kelp.run.ProcNum +
                        " is saved anew: in the database files its older rows stand before the new ones.");
  saved = mark;
}

}  // namespace

bool NoStationIsOpen(const RunState& run) {
  if (run.PrnFile.empty()) return true;
  for (int row = 0; row < StationTable::kRows; ++row)
    for (int col = 0; col < StationTable::kCols; ++col)
      if (!run.SampTbl(row, col).empty()) return false;
  return true;
}

std::optional<RunTimeError> WriteStation(Kelp& kelp) {
  RunState& run = kelp.run;
  Disk& disk = kelp.platform.disk();
  const LocalTime now = kelp.platform.Now();
  run.ReportStr = ShortDate(now) + " " + LongTime(now);
  // Values that were all typed have no time of a reading: the first save dates them, for good.
  if (run.RunDate.empty()) run.RunDate = Replaced(run.ReportStr, " ", ",");
  run.ResultsSaved = false;
  TakeGrid(kelp);
  const std::string table = Joined(TableLines(kelp));
  const std::vector<std::string> lines = ReportLines(kelp);
  const std::string report = Joined(lines);
  GoOnWithUnfinished(run, table + report);

  Once(run, run.PrnFile, [&] { disk.Append(run.PrnFile, report); });
  // A station reloaded from its kept copy is saved under its own name; the file there is kept like any.
  run.BaseFile = StationPath(run.BaseFile);
  Once(run, run.BaseFile, [&] { KeepBaseFile(disk, run.BaseFile, now); });
  disk.Replace(run.BaseFile, table + report);
  disk.Replace(run.BaseFile + ".htm", HtmlReport(lines));
  std::optional<RunTimeError> printFailure;
  if (kelp.frmWhatsNext.Check2[0].Value) {
    try {
      Once(run, kPrintStep, [&] { Print(kelp, lines); });
    } catch (const RunTimeError& error) {
      printFailure = error;
    }
  }
  NormaliseCtdTime(kelp);
  if (kelp.frmWhatsNext.Check2[1].Value) AppendToDatabase(kelp);
  Once(run, kConfigPath, [&] { SnapshotConfig(kelp); });
  run.ResultsSaved = !printFailure;
  return printFailure;
}

void ForgetPrint(RunState& run) { run.Unfinished.Done.erase(kPrintStep); }

void FinishSave(RunState& run) { run.Unfinished = {}; }

}  // namespace kelp
