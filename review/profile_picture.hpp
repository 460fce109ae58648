// SPDX-License-Identifier: GPL-3.0-or-later
// Profiles: chlorophyll-a, phaeopigment and acid ratio against depth.
#pragma once

#include <vector>

#include "review/picture.hpp"
#include "review/station.hpp"

namespace kelp {

/// A picture with more stations could not be read.
inline constexpr std::size_t kMostStations = 8;

/// Chl-a (filled) and phaeo (hollow) against depth, down. One station: each its own colour; several: each
/// station its own colour and shape. Flagged samples are ringed and carry their flag, samples of -99 stand
/// as a cross at the left. Without depths the samples stand in the order of reading, which the axis says.
Picture ProfilePicture(const std::vector<const Station*>& stations);

/// The acid ratio against depth, over the bands of the flags.
Picture RatioPicture(const std::vector<const Station*>& stations);

}  // namespace kelp
