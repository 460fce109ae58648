// SPDX-License-Identifier: GPL-3.0-or-later
#include "review/picture.hpp"

#include <algorithm>
#include <cmath>

#include "core/numbers.hpp"

namespace kelp {

namespace {

// The next of 1, 2, 5 times a power of ten that is not below `step`.
double NiceStep(double step) {
  const double power = std::pow(10, std::floor(std::log10(step)));
  for (const double factor : {1.0, 2.0, 5.0})
    if (step <= factor * power * (1 + 1e-9)) return factor * power;
  return 10 * power;
}

}  // namespace

Axis NiceAxis(const std::string& title, double low, double high, int ticks) {
  if (!(high > low)) {
    const double room = std::max(std::abs(low) * 0.1, 1e-3);
    low -= room;
    high = low + 2 * room;
  }
  const double step = NiceStep((high - low) / ticks);
  const int decimals = std::max(0, static_cast<int>(-std::floor(std::log10(step) + 1e-9)));
  // A step is not exact in the last bit, and not the same bit with every library: both ends stay inside.
  Axis axis{title, std::min(low, std::floor(low / step + 1e-9) * step),
            std::max(high, std::ceil(high / step - 1e-9) * step)};
  const auto count = static_cast<int>(std::lround((axis.To - axis.From) / step));
  for (int i = 0; i <= count; ++i) {
    const double at = axis.From + i * step;
    axis.Ticks.push_back({at, Fixed(at, decimals)});
  }
  return axis;
}

}  // namespace kelp
