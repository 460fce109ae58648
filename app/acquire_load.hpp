// SPDX-License-Identifier: GPL-3.0-or-later
// The set-up of the acquisition screen for a station.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Loads the acquisition screen and the login above it: resets the run, copies the configuration into
/// the header boxes, checks the local backup folder and sets up the grid. A run-time error on the way
/// is told in the words of the port failure and named in the status bar; the login comes up all the same.
void frmAcquire_Load(Kelp& kelp);

/// Claims the drives for a run. False after a message when another copy of the program has a run on them:
/// both would write into the same files. Throws FileError when the drive can't be written.
bool ClaimDrives(Kelp& kelp);

}  // namespace kelp
