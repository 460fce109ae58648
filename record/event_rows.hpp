// SPDX-License-Identifier: GPL-3.0-or-later
// Events as rows of the database.
#pragma once

#include <vector>

#include "record/event.hpp"
#include "record/sqlite.hpp"

namespace kelp {

/// What a SELECT of events names, in the order that EventAt() reads.
inline constexpr const char* kEventColumns =
    "id, uid, run, step, coalesce(undoes, 0), kind, at, machine, analyst, station, number, name, cruise, "
    "how, reads, sd, mark, rows";

/// The values of the event whose id is bound.
inline constexpr const char* kValuesOfEvent =
    "SELECT place, what, before, after, moved FROM value WHERE event = ? ORDER BY place";

/// The event in the row that a statement stands on, its id in column `first`; without its values.
RecordedEvent EventAt(const Statement& row, int first);

/// Adds the values of an event, by a statement of kValuesOfEvent. Throws RecordError; those read so far are
/// in the list then.
void AddValuesOf(Statement& values, std::int64_t id, std::vector<RecordedValue>& list);

std::vector<RecordedValue> ValuesOf(Statement& values, std::int64_t id);

}  // namespace kelp
