// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/statistics.hpp"

#include <cmath>
#include <limits>

namespace kelp {

Spread SpreadOf(const std::vector<double>& values) {
  Spread spread{values.size()};
  if (values.empty()) return spread;
  const auto count = static_cast<double>(values.size());
  for (const double value : values) spread.Mean += value / count;
  double squares = 0;
  for (const double value : values) squares += (value - spread.Mean) * (value - spread.Mean);
  if (values.size() > 1) spread.Sd = std::sqrt(squares / (count - 1));
  return spread;
}

Trend TrendOf(const std::vector<double>& values) {
  const std::size_t count = values.size();
  if (count < 3) return {};
  const auto n = static_cast<double>(count);
  const double mean = SpreadOf(values).Mean;
  double xx = 0;
  double xy = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const double x = static_cast<double>(i) - (n - 1) / 2;
    xx += x * x;
    xy += x * (values[i] - mean);
  }
  Trend trend{xy / xx, xy / xx * (n - 1)};
  double squares = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const double x = static_cast<double>(i) - (n - 1) / 2;
    squares += std::pow(values[i] - mean - trend.Step * x, 2);
  }
  const double error = std::sqrt(squares / (n - 2) / xx);
  if (trend.Step != 0) trend.T = error > 0 ? trend.Step / error : std::numeric_limits<double>::infinity();
  return trend;
}

}  // namespace kelp
