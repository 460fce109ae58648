// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/contrast.hpp"

#include <algorithm>
#include <cmath>

namespace kelp {

namespace {

// Relative luminance, WCAG 2.1.
double Luminance(Rgb color) {
  const auto part = [&](int shift) {
    const double share = static_cast<double>(color >> shift & 0xFFU) / 255;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(16) + 0.7152 * part(8) + 0.0722 * part(0);
}

}  // namespace

double Contrast(Rgb a, Rgb b) {
  // The list gives values; of two arguments it would give references to what is gone by then.
  const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

}  // namespace kelp
