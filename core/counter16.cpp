// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/counter16.hpp"

#include <cmath>
#include <limits>

#include "platform/error.hpp"

namespace kelp {

std::int16_t CheckedInt16(long long value) {
  if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max())
    throw RunTimeError(ErrorKind::Overflow,
                       "the number " + std::to_string(value) + " does not fit a 16-bit counter");
  return static_cast<std::int16_t>(value);
}

std::int16_t ToInt16(double value) {
  const double rounded = std::nearbyint(value);
  if (!(std::abs(rounded) < 1e9))
    throw RunTimeError(ErrorKind::Overflow, "a number is too large for a 16-bit counter");
  return CheckedInt16(static_cast<long long>(rounded));
}

}  // namespace kelp
