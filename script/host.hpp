// SPDX-License-Identifier: GPL-3.0-or-later
// Where an operator script plays. The console plays scripts without a display, the desktop in its real
// windows; the script itself does not know which.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "app/door.hpp"
#include "core/kelp.hpp"
#include "platform/scripted.hpp"

namespace kelp {

class ScriptHost {
 public:
  virtual ~ScriptHost() = default;

  /// The program that plays, and the machine under it: the same object as `program().platform`.
  virtual Kelp& program() = 0;
  virtual ScriptedPlatform& machine() = 0;

  /// Starts the program.
  virtual void Start() = 0;

  /// Does to the screens what an operator did; false when the operator could not have done it (see the
  /// door's Post).
  virtual bool Post(const Event& event) = 0;

  /// Lets time pass: passes of the read loop, ticks of the log timer. Ends early once `until` (which
  /// may be empty) is true or the program has ended. Returns whether `until` was true.
  virtual bool Let(std::int64_t milliseconds, const std::function<bool()>& until) = 0;

  /// False when readings come over a real line: then a script can't feed any.
  virtual bool LineIsScripted() { return true; }

  /// Prints a line that the script asked for, or that tells what the operator would see.
  virtual void Print(const std::string& line) = 0;
};

}  // namespace kelp
