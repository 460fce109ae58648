// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/review.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"

namespace kelp {

Review MakeReview(Cruise cruise, const Limits& limits) {
  Review review{std::move(cruise), limits};
  review.Stations = MeasuredStations(review.Cruise.Stations);
  review.Charts = ControlCharts(review.Stations, limits);
  review.Findings = CheckCruise(review.Cruise, review.Stations, review.Charts, limits);
  return review;
}

const Station* FindStation(const Review& review, const std::string& procNum) {
  for (const Station& station : review.Stations)
    if (PaddedProcNum(station.ProcNum) == PaddedProcNum(Trim(procNum))) return &station;
  return nullptr;
}

}  // namespace kelp
