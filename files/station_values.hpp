// SPDX-License-Identifier: GPL-3.0-or-later
// Values of a station that the report and the database files share, as they stand on the screen.
#pragma once

#include <string>

#include "core/date_time.hpp"
#include "core/kelp.hpp"
#include "core/places.hpp"

namespace kelp {

/// The begin blank (`box` 0) or end blank (1): the one that the results were calculated with, or what
/// its box shows; "-99.00" when it was not read.
std::string BlankText(const Kelp& kelp, int box);

/// What a box shows, for a file: missing is not zero, so a box that was not read is "-99.00".
std::string BoxText(const Kelp& kelp, int box);

/// A cell of the grid, for a file: an Rb or Ra that was not read is "-99.000".
std::string CellText(const Kelp& kelp, int row, int col);

/// When the station was read: date and time of its last log record, or for values that were all typed of
/// its first save.
DateAndTime ReadAt(const RunState& run);

}  // namespace kelp
