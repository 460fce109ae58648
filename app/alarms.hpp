// SPDX-License-Identifier: GPL-3.0-or-later
// What must not be overlooked: it is said across the screen, and by a sound until somebody has seen it.
#pragma once

#include <string>
#include <vector>

#include "core/kelp.hpp"

namespace kelp {

enum class AlarmKind {
  Unsafe,         ///< readings are not on the disk
  LineLost,       ///< the serial line is gone
  Silent,         ///< no reading for five seconds
  Offscale,       ///< the reading is above what the instrument can measure
  LogNotWritten,  ///< the per-read log can't be written
};

struct Alarm {
  AlarmKind Kind;
  std::string Text;  ///< one line: what it is, and what to do
  bool operator==(const Alarm&) const = default;
};

/// The alarms of this moment, the worst first. While the program is paused the line is not watched.
std::vector<Alarm> AlarmsOf(const Kelp& kelp);

/// The line is lost or silent: what the screen shows of the reading is old. Its age in seconds, or -1.
int ReadingAge(const Kelp& kelp);

/// Which alarms somebody has seen: a new kind calls again, and so does one that had gone and came back.
class AlarmCall {
 public:
  /// Takes the alarms of this moment; true while one of them was not seen.
  bool Listen(const std::vector<Alarm>& alarms);
  /// The operator has seen them.
  void Seen();
  [[nodiscard]] bool Calling() const { return calling_; }

 private:
  std::vector<AlarmKind> now_ = {};
  std::vector<AlarmKind> seen_ = {};
  bool calling_ = false;
};

}  // namespace kelp
