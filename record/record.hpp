// SPDX-License-Identifier: GPL-3.0-or-later
// The station's record: every accepted value, from the event that stored it, in one append-only database on
// the machine's own drive. Front ends and handlers know no more of it than this.
#pragma once

#include <string>
#include <vector>

#include "core/kelp.hpp"
#include "record/event.hpp"

namespace kelp {

inline constexpr const char* kRecordPath = "c:\\kelp\\record.db";

/// An event of the operator's, a pass or a tick begins: what is said of it is its own.
void BeginEvent(Kelp& kelp, const StoreNote& note);

/// Compares the station with what the record knows of it and writes what has changed as one transaction,
/// which is on the disk before this returns. Call it after every event and every save. True when something
/// was stored. Never throws: what can't be written is kept, put beside the station's temporary copy, tried
/// again with every call, and `kelp.record.Unsafe` says so until it is written.
bool KeepRecord(Kelp& kelp);

/// Tries once more to write what is not in the record yet; does nothing when that is nothing.
void WriteRecord(Kelp& kelp);

/// A run of samples begins: takes over what journals of an older program hold and what was written beside
/// temporary copies, and offers each unfinished station, the newest first. The one that the operator wants
/// to go on with is `kelp.record.Chosen` afterwards.
void OfferUnfinished(Kelp& kelp);

/// The station just loaded has values in the record that are not saved: asks whether to go on with it,
/// unless that was asked before. After a Yes they are back in grid, table and boxes, and the run goes on
/// where it was. True after a Yes.
bool OfferRestore(Kelp& kelp);

/// The station's files are written. `rows` marks what its database rows hold.
void RecordSaved(Kelp& kelp, const std::string& rows);

/// The configuration took over values, by `how`: an event of no station, with the run 0. `values` holds for
/// each its line, its name, and what it was before and after.
void RecordConfigChange(Kelp& kelp, const std::string& how, std::vector<RecordedValue> values);

/// What the last event that stored something did can be taken back.
bool CanUndo(const Kelp& kelp);

struct Undone {
  std::string What;       ///< in words; "" when there was nothing to take back
  bool MovesRun = false;  ///< the event had moved the run on: it stands at the item before again
};

/// Puts cells and boxes back to what they were before the last event that stored something and was not
/// taken back, and where that event moved the run on, counters, step and caption too; the caller makes the
/// rest of the screen follow. The next KeepRecord writes it as an event of its own.
Undone UndoLast(Kelp& kelp);

/// Asks, when something that was accepted is not in the record, whether to leave all the same. True when
/// all is safe or the operator says Yes.
bool MayLeave(Kelp& kelp);

/// The stations of the record as lines for a terminal, or with a processing number or a base file's path
/// the history of one: who stored what, when and how, before and after. Throws FileError.
std::vector<std::string> ListRecord(Disk& disk, const std::string& station);

}  // namespace kelp
