// SPDX-License-Identifier: GPL-3.0-or-later
// A cruise looked at: its stations, measured, with control charts and findings.
#pragma once

#include "review/checks.hpp"
#include "review/final_data.hpp"

namespace kelp {

struct Review {
  kelp::Cruise Cruise;
  kelp::Limits Limits;
  std::vector<Station> Stations = {};  ///< one for each of Cruise.Stations
  std::vector<ControlChart> Charts = {};
  std::vector<Finding> Findings = {};
};

Review MakeReview(Cruise cruise, const Limits& limits);

/// The station with a processing number ("7" is "007"); null when the cruise has none.
const Station* FindStation(const Review& review, const std::string& procNum);

}  // namespace kelp
