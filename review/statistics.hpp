// SPDX-License-Identifier: GPL-3.0-or-later
// Mean, standard deviation and trend of a series of values.
#pragma once

#include <vector>

namespace kelp {

struct Spread {
  std::size_t Count = 0;
  double Mean = 0;
  double Sd = 0;  ///< of the sample (n - 1); 0 for fewer than two values
};

/// Two passes, so that small spreads of large values keep their digits.
Spread SpreadOf(const std::vector<double>& values);

/// The straight line of least squares through values at equal steps.
struct Trend {
  double Step = 0;   ///< change from one value to the next
  double Total = 0;  ///< change from the first to the last value of the line
  double T = 0;      ///< Step by its standard error; how surely it is no chance
};

/// All 0 for fewer than three values.
Trend TrendOf(const std::vector<double>& values);

}  // namespace kelp
