// SPDX-License-Identifier: GPL-3.0-or-later
// A reading as the fluorometer sends it.
#pragma once

#include <string>
#include <string_view>

#include "core/text.hpp"

namespace kelp {

/// The line of a value, as it is typed: "\r\nA =  1.530 (RAW)".
inline std::string InstrumentLine(std::string_view value) {
  return "\r\nA =" + Padded(value, 7, "L", "S") + " (RAW)";
}

}  // namespace kelp
