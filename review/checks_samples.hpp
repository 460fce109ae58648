// SPDX-License-Identifier: GPL-3.0-or-later
// Checks of a station's samples against each other.
#pragma once

#include <vector>

#include "review/checks.hpp"

namespace kelp {

/// Bottles and vials that are there twice; vials that go back (a rack that begins anew with 1 does not).
void CheckNumbers(const Station& station, std::vector<Finding>& findings);

/// Depths missing, Ra above Rb, phaeo below 0.
void CheckReadings(const Station& station, std::vector<Finding>& findings);

/// Chl-a more than three times the larger, or less than a third of the smaller of the neighbours in depth,
/// and at least 0.1 ug/L away from it.
void CheckJumps(const Station& station, std::vector<Finding>& findings);

/// The samples with a depth and a chl-a of 0 and above, from the surface down, as indexes.
std::vector<std::size_t> InOrderOfDepth(const Station& station);

}  // namespace kelp
