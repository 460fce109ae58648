// Values of a station that the report and the database files share, as they stand on the screen.
#pragma once

#include <string>

#include "core/date_time.hpp"
#include "core/kelp.hpp"

namespace kelp {

/// The begin blank (`box` 0) or end blank (1): the one that the results were calculated with, or what
/// its box shows ("0" when never read, "-99.00" when skipped).
std::string BlankText(const Kelp& kelp, int box);

/// Shows the average of begin and end blank in its header box, once both were read.
void ShowAverageBlank(Kelp& kelp);

/// When the station was read: date and time of its last log record, else of the report.
DateAndTime ReadAt(const RunState& run);

}  // namespace kelp
