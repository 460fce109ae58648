// What a station's journal holds: all that must outlive a crash, and how it goes back to where it was.
#pragma once

#include <string>
#include <vector>

#include "core/kelp.hpp"
#include "files/journal_text.hpp"

namespace kelp {

struct JournalValue {
  JournalLine Line;
  bool Measured = false;  ///< a journal begins with such a value; the others only go along
};

/// The values of the open station, in a fixed order that depends on the number of its rows only.
std::vector<JournalValue> JournalValues(const Kelp& kelp);

/// The rows of the grid that hold samples: relocated readings may lie behind the station's last sample.
int RowsInUse(const Kelp& kelp);

/// Puts the lines of a section back into grid, table and boxes, up to the first one that no station can
/// have, and sets where the run goes on.
void RestoreStation(Kelp& kelp, const std::vector<JournalLine>& lines);

}  // namespace kelp
