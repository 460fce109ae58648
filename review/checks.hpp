// SPDX-License-Identifier: GPL-3.0-or-later
// What a careful analyst looks for in a cruise's data, said in words.
#pragma once

#include <string>
#include <vector>

#include "files/cruise.hpp"
#include "review/control_chart.hpp"

namespace kelp {

/// Something that wants to be looked at. It changes nothing: the analyst decides.
struct Finding {
  std::string ProcNum;  ///< "" for the whole cruise
  std::string Where;    ///< "bottle 07", "bottles 07 and 08", "begin blank", ...
  std::string Text;     ///< one sentence, with the values
};

/// All findings of a cruise, in the order of its stations, those of the whole cruise in front. `stations`
/// are the measured stations of `cruise`, `charts` their control charts.
std::vector<Finding> CheckCruise(const Cruise& cruise, const std::vector<Station>& stations,
                                 const std::vector<ControlChart>& charts, const Limits& limits);

/// The findings of one station that need no other: end against begin values, bottles, vials, depths, order
/// of the readings, phaeo below 0, jumps, filtration after reading, F and tau.
std::vector<Finding> CheckStation(const StationFile& file, const Station& station, const Limits& limits);

}  // namespace kelp
