// SPDX-License-Identifier: GPL-3.0-or-later
#include "record/database.hpp"

#include <algorithm>

#include "record/event_rows.hpp"
#include "record/schema.hpp"

namespace kelp {

Database::Database(Disk& disk, std::string path, Opening opening) : disk_(disk), path_(std::move(path)) {
  const std::filesystem::path place = disk.HostPlace(path_);
  inMemory_ = place.empty();
  if (disk.IsFolder(path_)) throw RecordError(path_, "is a folder", true);
  connection_ = std::make_unique<Connection>(path_, place, !inMemory_ && opening == Opening::ToRead);
  if (inMemory_ && disk.Exists(path_)) {
    const std::string content = disk.Read(path_);
    if (!content.empty()) connection_->Take(content);
  }
  // The journal stays and is emptied: no name in the folder changes with a value, and no flush of the
  // folder is needed, which some network drives refuse.
  connection_->Run(
      "PRAGMA journal_mode=PERSIST; PRAGMA synchronous=EXTRA; PRAGMA temp_store=MEMORY; PRAGMA "
      "foreign_keys=ON;");
  CheckVersion();
  // A file that was cut off in its last page opens, and gives the rows there as if they had never been.
  const auto size =
      inMemory_ ? disk.Exists(path_) ? disk.Read(path_).size() : 0 : std::filesystem::file_size(place);
  if (opening != Opening::ToSalvage &&
      size % static_cast<std::size_t>(connection_->Number("PRAGMA page_size")) != 0)
    throw RecordError(path_, "is damaged: its end is missing", true);
}

void Database::CheckVersion() {
  const std::int64_t version = connection_->Number("PRAGMA user_version");
  const std::int64_t application = connection_->Number("PRAGMA application_id");
  const std::int64_t tables = connection_->Number("SELECT count(*) FROM sqlite_master");
  if (version == 0 && tables == 0) {
    connection_->Run("BEGIN IMMEDIATE");
    connection_->Run(kSchema);
    connection_->Run(("PRAGMA application_id=" + std::to_string(kApplicationId)).c_str());
    connection_->Run(("PRAGMA user_version=" + std::to_string(kSchemaVersion)).c_str());
    connection_->Run("COMMIT");
  } else if (application != kApplicationId) {
    throw RecordError(path_, "is the database of another program", true);
  } else if (version > kSchemaVersion) {
    throw RecordError(path_,
                      "was written by a newer Kelp (version " + std::to_string(version) +
                          " of the record, this one knows " + std::to_string(kSchemaVersion) +
                          "); install that one again to go on with it",
                      true);
  }
  has_.emplace(*connection_, "SELECT 1 FROM event WHERE uid = ?");
  hasBegun_.emplace(
      *connection_,
      "SELECT 1 FROM event WHERE kind IN ('load', 'carry', 'whole') AND station = ? AND +uid = ?");
  ofRun_.emplace(
      *connection_,
      ("SELECT " + std::string(kEventColumns) + " FROM event WHERE run = ? ORDER BY id DESC").c_str());
  values_.emplace(*connection_, kValuesOfEvent);
  addEvent_.emplace(*connection_,
                    "INSERT INTO event (uid, run, step, undoes, kind, at, machine, analyst, station, number, "
                    "name, cruise, how, reads, sd, mark, rows) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
  addValue_.emplace(
      *connection_,
      "INSERT INTO value (event, place, what, before, after, moved) VALUES (last_insert_rowid(),?,?,?,?,?)");
}

namespace {

// To the end, so that the statement is ready again.
bool FindsARow(Statement& rows) {
  bool found = false;
  while (rows.Row()) found = true;
  return found;
}

}  // namespace

bool Database::Has(std::int64_t uid) { return FindsARow(has_->Bind(1, uid)); }

bool Database::HasBegun(std::int64_t run, const std::string& station) {
  return FindsARow(hasBegun_->Bind(1, station).Bind(2, run));
}

// By the same ways that a station is brought back.
bool Database::GivesBack(const RecordedEvent& event) {
  std::vector<RecordedValue> wanted = event.Values;
  std::sort(wanted.begin(), wanted.end(), [](const auto& a, const auto& b) { return a.Place < b.Place; });
  bool same = false;
  ofRun_->Bind(1, event.Run);
  while (!same && ofRun_->Row()) {
    const RecordedEvent found = EventAt(*ofRun_, 0);
    same = found.Uid == event.Uid && found.Kind == event.Kind && found.Step == event.Step &&
           found.Undoes == event.Undoes && ValuesOf(*values_, ofRun_->Number(0)) == wanted;
  }
  ofRun_->Reset();
  return same;
}

void Database::WriteOne(const RecordedEvent& event) {
  if (Has(event.Uid)) return;
  addEvent_->Bind(1, event.Uid).Bind(2, event.Run).Bind(3, event.Step);
  event.Undoes == 0 ? addEvent_->BindNull(4) : addEvent_->Bind(4, event.Undoes);
  addEvent_->Bind(5, event.Kind).Bind(6, event.At).Bind(7, event.Machine).Bind(8, event.Analyst);
  addEvent_->Bind(9, event.Station).Bind(10, event.Number).Bind(11, event.Name).Bind(12, event.Cruise);
  addEvent_->Bind(13, event.How);
  if (event.Reads > 0)
    addEvent_->Bind(14, std::int64_t{event.Reads}).Bind(15, event.Sd);
  else
    addEvent_->BindNull(14).BindNull(15);
  event.Mark.empty() ? addEvent_->BindNull(16) : addEvent_->Bind(16, event.Mark);
  event.Rows.empty() ? addEvent_->BindNull(17) : addEvent_->Bind(17, event.Rows);
  addEvent_->Run();
  for (const RecordedValue& value : event.Values)
    addValue_->Bind(1, value.Place)
        .Bind(2, value.What)
        .Bind(3, value.Before)
        .Bind(4, value.After)
        .Bind(5, std::int64_t{value.Moved})
        .Run();
}

void Database::Write(const std::vector<RecordedEvent>& events) {
  connection_->Run("BEGIN IMMEDIATE");
  try {
    for (const RecordedEvent& event : events) WriteOne(event);
    if (!events.empty() && !GivesBack(events.back()))
      throw RecordError(path_, "is damaged: what is written can't be read from it again", true);
    connection_->Run("COMMIT");
  } catch (...) {
    sqlite3_exec(connection_->handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
  if (inMemory_) disk_.Replace(path_, connection_->Content());
}

std::vector<Database::Run> Database::RunsWhere(const std::string& condition, const std::string& station) {
  std::string begun = kEventColumns;
  std::vector<Run> runs;
  Statement rows(*connection_, ("SELECT " + begun + " FROM event WHERE kind IN ('load', 'carry', 'whole')" +
                                condition + " ORDER BY id")
                                   .c_str());
  Statement last(*connection_,
                 ("SELECT " + begun + " FROM event WHERE run = ? ORDER BY id DESC LIMIT 1").c_str());
  if (!station.empty()) rows.Bind(1, station);
  while (rows.Row()) {
    Run run{EventAt(rows, 0), {}};
    last.Bind(1, run.Begun.Uid);
    if (!last.Row()) continue;
    run.Last = EventAt(last, 0);
    while (last.Row()) continue;
    runs.push_back(std::move(run));
  }
  return runs;
}

std::vector<Database::Run> Database::Runs(const std::string& station) {
  return RunsWhere(station.empty() ? "" : " AND station = ?", station);
}

std::vector<Database::Run> Database::OpenRuns() {
  // Only the newest run of a station counts, and most of those ended with a save.
  std::vector<Run> runs = RunsWhere(
      " AND id IN (SELECT max(id) FROM event WHERE kind IN ('load', 'carry', 'whole') GROUP BY station)"
      " AND (SELECT kind FROM event last WHERE last.run = event.uid ORDER BY last.id DESC LIMIT 1)"
      " NOT IN ('saved', 'aside', 'load')",
      "");
  return {runs.rbegin(), runs.rend()};
}

std::vector<RecordedEvent> Database::EventsOf(std::int64_t run) {
  std::vector<RecordedEvent> events;
  Statement rows(*connection_,
                 ("SELECT " + std::string(kEventColumns) + " FROM event WHERE run = ? ORDER BY id").c_str());
  Statement values(*connection_, kValuesOfEvent);
  rows.Bind(1, run);
  while (rows.Row()) {
    events.push_back(EventAt(rows, 0));
    events.back().Values = ValuesOf(values, rows.Number(0));
  }
  return events;
}

std::string Database::SavedRows(const std::string& station) {
  Statement rows(*connection_,
                 "SELECT rows FROM event WHERE kind = 'saved' AND station = ? ORDER BY id DESC LIMIT 1");
  rows.Bind(1, station);
  return rows.Row() ? rows.Text(0) : "";
}

}  // namespace kelp
