// SPDX-License-Identifier: GPL-3.0-or-later
// What the running program knows of its record: what is written, what waits, what can be taken back.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "record/database.hpp"
#include "record/places.hpp"
#include "record/run_so_far.hpp"

namespace kelp {

class RecordBook {
 public:
  std::unique_ptr<Database> Main = {};   ///< closed after an error
  std::unique_ptr<Database> Spare = {};  ///< beside the temporary copy, while the record can't be written
  bool Unusable = false;    ///< the database that is there can never be used: it is to be set aside
  std::string Notice = {};  ///< what is to be told of that, once all is written
  std::set<std::int64_t> InSpare = {};  ///< events that the spare has
  std::vector<RecordedEvent> Pending = {};

  int StationLoads = 0;
  std::string Station = {};
  std::int64_t Run = 0;
  std::int64_t LastWritten = 0;
  std::int64_t Proven = 0;                      ///< a run that the database was seen to offer again
  bool Saved = false;                           ///< the newest event of the station is its save
  std::vector<std::string> Known = {};          ///< the places after the last event, in their order
  std::map<std::size_t, std::string> Old = {};  ///< places that moved without an event: as last written
  std::vector<std::vector<RecordedEvent>> Steps = {};  ///< what can be taken back

  // Said during an event, done with at its end.
  std::vector<RecordedEvent> Restored = {};  ///< the run that the station just loaded goes on with
  std::int64_t Undoing = 0;                  ///< the step that this event takes back
  bool SavedNow = false;                     ///< the rest of this event belongs to the save
  std::int64_t EventStep = 0;                ///< the step of this event, when a part of it is written already

  std::int64_t LastUid = 0;  ///< the number that the newest event of this run of the program got
};

/// A number that no other event on any machine has. A script with its own time numbers alike each time it is
/// played on the same files, so that it gives the same files.
std::int64_t NewUid(Kelp& kelp);

/// The book of this program; made when it is asked for first.
RecordBook& BookOf(Kelp& kelp);

/// An event of the open station, now, without values.
RecordedEvent NewEvent(Kelp& kelp, const std::string& kind, How how);

/// Adds an event and writes all that waits. `kelp.record.Unsafe` tells how that went.
void Add(Kelp& kelp, RecordedEvent event);

/// The database, opened when it is not; one that can't be used is set aside and a new one begun. Throws
/// RecordError or FileError.
Database& OpenRecord(Kelp& kelp);

/// Cells were put back: the Rb that an Ra is compared with, and where a restored run goes on, follow them.
void FollowCells(Kelp& kelp);

/// Where the spare lies: beside the temporary copies, one for each machine.
std::vector<std::string> SparePaths(Kelp& kelp);

/// Takes the events that other files hold into the record: a spare, journals of an older program.
void TakeOver(Kelp& kelp);

/// Time as the record writes it, and as the screens show that.
std::string RecordTime(LocalTime time);
std::string ShownTime(const std::string& recordTime);

}  // namespace kelp
