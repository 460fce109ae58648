// SPDX-License-Identifier: GPL-3.0-or-later
// When the next tick of the log timer is due.
#pragma once

#include <cstdint>
#include <optional>

#include "app/door.hpp"

namespace kelp {

class ScriptTimer {
 public:
  /// To be called after everything that may have started, stopped or set the timer.
  void Follow(const Kelp& kelp, std::int64_t now) {
    if (!WantsTicks(kelp)) {
      due_.reset();
    } else if (!due_ || interval_ != kelp.Timer1.Interval) {
      interval_ = kelp.Timer1.Interval;
      due_ = now + interval_;
    }
  }

  /// The time of the next tick; nothing while the timer stands.
  [[nodiscard]] std::optional<std::int64_t> Due() const { return due_; }

  /// A tick was made at its time.
  void Ticked() { *due_ += interval_; }

 private:
  std::optional<std::int64_t> due_;
  int interval_ = 0;
};

}  // namespace kelp
