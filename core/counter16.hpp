// SPDX-License-Identifier: GPL-3.0-or-later
// Signed 16-bit counters. Leaving the range is the run-time error Overflow, never a wrap.
#pragma once

#include <cstdint>

namespace kelp {

/// `value` as a 16-bit integer. Throws Overflow outside -32768 to 32767.
std::int16_t CheckedInt16(long long value);

/// `value` rounded half to even to a 16-bit integer. Throws Overflow outside the range.
std::int16_t ToInt16(double value);

class Counter16 {
 public:
  Counter16() = default;
  Counter16(long long value) : value_(CheckedInt16(value)) {}  // NOLINT: counters are plain numbers
  operator int() const { return value_; }                      // NOLINT
  Counter16& operator++() { return *this += 1; }
  Counter16& operator+=(int step) {
    value_ = CheckedInt16(static_cast<long long>(value_) + step);
    return *this;
  }

 private:
  std::int16_t value_ = 0;
};

}  // namespace kelp
