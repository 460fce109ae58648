// SPDX-License-Identifier: GPL-3.0-or-later
// Control charts: what is read at the begin and end of every station should be the same all cruise long.
#pragma once

#include <string>
#include <vector>

#include "review/limits.hpp"
#include "review/station.hpp"

namespace kelp {

struct ChartPoint {
  std::string ProcNum;
  bool End = false;          ///< the end value of its station
  std::size_t Place = 0;     ///< station, counted from 0
  double Value = 0;          ///< reading
  std::string Outside = {};  ///< why it lies outside, in words; "" when it does not
};

struct ControlChart {
  std::string Name;                   ///< "Blank", "Copro 3-1", ...
  std::vector<std::string> Stations;  ///< processing numbers, in order of time
  std::vector<ChartPoint> Points;
  double Mean = 0, Sd = 0;      ///< of all points; lines stand at 2 and 3 Sd when Lines
  bool Lines = false;           ///< five points and more
  double Upper = 0, Lower = 0;  ///< blank limit, copro average +- tolerance; both 0 for none
  double Expected = 0;          ///< configured running average; 0 for none
  std::string Drift = {};       ///< what the values do over the cruise, in words; "" when nothing
};

/// A chart of each series that was read at all, stations in the order given: blanks, both copros, both
/// standards. A point lies outside beyond 3 Sd of the mean, above the blank limit or beyond a copro's
/// tolerance. A series drifts when the slope of its straight line is at least 6 times its standard error
/// and it moves by at least 3 % of the mean (a blank: a fifth of its limit) over ten values or more.
std::vector<ControlChart> ControlCharts(const std::vector<Station>& stations, const Limits& limits);

}  // namespace kelp
