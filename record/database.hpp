// SPDX-License-Identifier: GPL-3.0-or-later
// The database of the record: opened, written in whole transactions, read.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/disk.hpp"
#include "record/event.hpp"
#include "record/sqlite.hpp"

namespace kelp {

/// To salvage takes a file whose end is missing as well.
enum class Opening { ToWrite, ToRead, ToSalvage };

class Database {
 public:
  /// Opens the database at a program path and makes its tables when it is new. Throws RecordError, also for
  /// a database of a newer program or of another one. A disk without places on the host holds it as one
  /// file, which is replaced whole.
  Database(Disk& disk, std::string path, Opening opening = Opening::ToWrite);

  /// Writes events in one transaction, on the disk before this returns. Events that are there already are
  /// left out. The last one is read again before the transaction ends: damage that SQLite does not see can
  /// swallow what is written. Throws RecordError; then none of them is there.
  void Write(const std::vector<RecordedEvent>& events);

  [[nodiscard]] bool Has(std::int64_t uid);

  /// True where the beginning of a run is found by its station.
  [[nodiscard]] bool HasBegun(std::int64_t run, const std::string& station);

  /// The event that began each run, oldest first, of one station or ("") of all; and the run's last one.
  struct Run {
    RecordedEvent Begun;
    RecordedEvent Last;
  };
  std::vector<Run> Runs(const std::string& station);

  /// The runs whose last event leaves something open, newest first.
  std::vector<Run> OpenRuns();

  /// The events of a run in their order, with their values.
  std::vector<RecordedEvent> EventsOf(std::int64_t run);

  /// Every event in its order, as far as a damaged database gives them.
  std::vector<RecordedEvent> AllEvents();

  /// Mark of the database rows of the station's newest save; "" for none.
  std::string SavedRows(const std::string& station);

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  void CheckVersion();
  void WriteOne(const RecordedEvent& event);
  bool Scan(const char* order, std::vector<RecordedEvent>& events);
  [[nodiscard]] bool GivesBack(const RecordedEvent& event);
  std::vector<Run> RunsWhere(const std::string& condition, const std::string& station);

  Disk& disk_;
  std::string path_;
  bool inMemory_;
  std::unique_ptr<Connection> connection_;
  std::optional<Statement> has_ = {};
  std::optional<Statement> hasBegun_ = {};
  std::optional<Statement> ofRun_ = {};
  std::optional<Statement> values_ = {};
  std::optional<Statement> addEvent_ = {};
  std::optional<Statement> addValue_ = {};
};

/// Gives a database that can't be used another name, with the time in it. Returns the name.
std::string SetAside(Disk& disk, const std::string& path, const std::string& stamp);

}  // namespace kelp
