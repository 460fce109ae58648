// SPDX-License-Identifier: GPL-3.0-or-later
// Closing a station: results, print job and running configuration, as F2 and the chooser do it.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Saves the station's results; the journal that guarded them goes. False after a message that names the
/// file that failed.
bool SaveStation(Kelp& kelp);

/// Saves the station's results and ends the print job. False after a message when either failed: nothing
/// further is to be done then, and the save can be repeated.
bool SaveAndPrintStation(Kelp& kelp);

/// What follows the save at a station's end: ends the print job and saves the running values of the
/// configuration. False after a message when the print job was lost. Throws FileError or Overflow when the
/// configuration can't be saved.
bool EndStation(Kelp& kelp);

/// Saves the station's results and ends the station.
bool CloseStation(Kelp& kelp);

}  // namespace kelp
