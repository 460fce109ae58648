// SPDX-License-Identifier: GPL-3.0-or-later
// A small file beside a base file says which machine has the station open: two that share a data path would
// write into the same files.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

/// False when another machine has the station open and the operator does not want to open it all the same.
/// A lock that was not refreshed for ten minutes was left behind.
bool MayOpenStation(Kelp& kelp, const std::string& baseFile);

/// The station is open here from now on; the one before no longer. A lock that can't be written is told in
/// the status bar.
void HoldStation(Kelp& kelp, const std::string& baseFile);

/// Refreshes the lock once a minute; call it as often as you like.
void RefreshStationLock(Kelp& kelp);

/// No station is open here any more.
void ReleaseStation(Kelp& kelp);

}  // namespace kelp
