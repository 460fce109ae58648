// SPDX-License-Identifier: GPL-3.0-or-later
// A small file beside a base file says which machine has the station open: two that share a data path would
// write into the same files.
#pragma once

#include <optional>
#include <string>

#include "core/kelp.hpp"

namespace kelp {

/// Who has a station open, as the lock tells.
struct LockHolder {
  std::string Machine;
  std::string User;
  std::string At;
};

/// Who else has the station open. A lock that was not refreshed for ten minutes was left behind.
std::optional<LockHolder> OtherHolder(Kelp& kelp, const std::string& baseFile);

/// The operator opens the station all the same: once is enough for one opening.
void OverrideHolder(Kelp& kelp, const std::string& baseFile);

/// The station is open here from now on; the one before no longer. A lock that can't be written is told in
/// the status bar.
void HoldStation(Kelp& kelp, const std::string& baseFile);

/// Refreshes the lock once a minute; call it as often as you like.
void RefreshStationLock(Kelp& kelp);

/// No station is open here any more.
void ReleaseStation(Kelp& kelp);

}  // namespace kelp
