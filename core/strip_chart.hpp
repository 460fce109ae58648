// SPDX-License-Identifier: GPL-3.0-or-later
// The strip chart's values: a ring of 101 readings, oldest to newest. Drawing it is the front end's
// work; the acquisition side feeds it one scaled value per reading.
#pragma once

#include <array>

#include "core/counter16.hpp"

namespace kelp {

class StripChart {
 public:
  static constexpr int kSlots = 101;

  /// Stores one value; values are expected in 0 to 1 but not clipped. `divisor` is what the reading was
  /// divided by.
  void AddPoint(float value, int divisor = 1) {
    values_[static_cast<std::size_t>(int{writeIndex_})] = value;
    divisors_[static_cast<std::size_t>(int{writeIndex_})] = divisor;
    ++writeIndex_;
    if (writeIndex_ > kSlots - 1) writeIndex_ = 0;
    ++pointsAdded_;
  }

  /// The i-th value, 0 (oldest) to 100 (newest).
  [[nodiscard]] float Value(int i) const {
    return values_[static_cast<std::size_t>((writeIndex_ + i) % kSlots)];
  }

  /// What its reading was divided by; 0 where no reading came yet.
  [[nodiscard]] int Divisor(int i) const {
    return divisors_[static_cast<std::size_t>((writeIndex_ + i) % kSlots)];
  }

  [[nodiscard]] int WriteIndex() const { return writeIndex_; }
  /// Grows with every point, so that a front end sees when to draw again.
  [[nodiscard]] unsigned long PointsAdded() const { return pointsAdded_; }

 private:
  std::array<float, kSlots> values_ = {};
  std::array<int, kSlots> divisors_ = {};
  Counter16 writeIndex_;
  unsigned long pointsAdded_ = 0;
};

}  // namespace kelp
