// SPDX-License-Identifier: GPL-3.0-or-later
// Control charts and the calibration line as pictures.
#pragma once

#include "review/calibration.hpp"
#include "review/control_chart.hpp"
#include "review/picture.hpp"

namespace kelp {

/// Begin values filled, end values hollow, stations from left to right in order of time; the mean, 2 and 3 s,
/// the limit or the copro's average with its tolerance; points outside ringed and named.
Picture ChartPicture(const ControlChart& chart);

/// Rb less blank against concentration with the line through the origin.
Picture CalibrationPicture(const std::vector<CalibrationTube>& tubes, const CalibrationResult& result);

}  // namespace kelp
