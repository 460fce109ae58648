// SPDX-License-Identifier: GPL-3.0-or-later
// What profile and ratio pictures share: the depth axis, the place of a sample, the look of a station.
#pragma once

#include <string>
#include <vector>

#include "review/picture.hpp"
#include "review/station.hpp"

namespace kelp {

/// True when every station has depths; else all are drawn in the order of reading.
bool ByDepth(const std::vector<const Station*>& stations);

/// Where a sample stands on the depth axis; nothing for one without depth.
Measured HeightOf(const Station& station, std::size_t index, bool byDepth);

/// The axis, surface on top.
Axis DepthAxis(const std::vector<const Station*>& stations, bool byDepth);

struct Look {
  kelp::Ink Ink = Ink::First;
  kelp::Shape Shape = Shape::Circle;
};
Look LookOf(std::size_t place);

/// "Station 002 (93.3 70)", or "Stations 002, 003".
std::string StationsTitle(const std::string& what, const std::vector<const Station*>& stations);

/// Draws the series `value` of a station: a line from the surface down and a mark for each sample; ringed
/// with its flag where it is flagged.
void AddSeries(Picture& picture, const Station& station, Measured Sample::*value, bool byDepth, Look look,
               bool filled, bool flags);

/// A cross at the left edge for each sample without a result because it was skipped.
void AddSkipped(Picture& picture, const Station& station, bool byDepth, double left);

}  // namespace kelp
