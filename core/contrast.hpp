// SPDX-License-Identifier: GPL-3.0-or-later
// How well two colours stand out from each other, as the Web Content Accessibility Guidelines 2.1 count it:
// 4.5 for text, 3 for signs, 21 at most.
#pragma once

#include <cstdint>

namespace kelp {

/// A colour as 0xRRGGBB.
using Rgb = std::uint32_t;

/// The contrast ratio of two colours, 1 to 21.
double Contrast(Rgb a, Rgb b);

inline constexpr double kTextContrast = 4.5;
inline constexpr double kSignContrast = 3;

}  // namespace kelp
