// SPDX-License-Identifier: GPL-3.0-or-later
// Whether a reading is above what the fluorometer can measure.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// True for a reading above the fluorometer's upper limit. A limit of 40 or less is none, and laboratory
/// and calibration runs may go beyond it.
bool IsOffscale(const Kelp& kelp, float reading);

}  // namespace kelp
