// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of the inks. Lightness carries the meaning too, so that a grey print says the same.
#pragma once

#include <array>
#include <string_view>

#include "review/picture.hpp"

namespace kelp {

struct Palette {
  std::string_view Paper;
  std::array<std::string_view, kInks> Inks;  ///< "#rrggbb", by Ink
};

inline constexpr Palette kLightPalette = {"#ffffff",
                                          {"#1a1f24", "#4d5860", "#d9dde0", "#0b6e4f", "#a34a00", "#2457a5",
                                           "#7a3b8f", "#b3001b", "#f3ead0", "#e5d6ab", "#d3bf88", "#bda262"}};
inline constexpr Palette kDarkPalette = {"#1b1f23",
                                         {"#e8ecef", "#aeb8c0", "#3a4248", "#5fd0a5", "#ffb066", "#8ab8ff",
                                          "#d6a2e8", "#ff8a8a", "#38341f", "#4a4427", "#5c512c", "#6e6031"}};

inline std::string_view ColourOf(const Palette& palette, Ink ink) {
  return palette.Inks[static_cast<std::size_t>(ink)];
}

}  // namespace kelp
