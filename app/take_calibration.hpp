// SPDX-License-Identifier: GPL-3.0-or-later
// A calibration becomes the configuration's: the next stations are calculated with it.
#pragma once

#include <optional>
#include <string>

#include "core/kelp.hpp"

namespace kelp {

struct NewCalibration {
  std::string Station;  ///< where it was read: processing number and name
  double F = 0, FSd = 0;
  std::optional<double> Tau = {}, TauSd = {};
};

/// Asks, and with Yes writes F into line 07 and tau, when there is one, into line 08, saves the
/// configuration and enters the change in the record. True when it was taken over. A file that can't be
/// written is reported, and the lines stay as they were.
bool TakeCalibration(Kelp& kelp, const NewCalibration& calibration);

}  // namespace kelp
