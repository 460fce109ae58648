// SPDX-License-Identifier: GPL-3.0-or-later
// How a script can fail.
#pragma once

#include <string>

namespace kelp {

/// The exit statuses of kelp-console.
enum class ScriptStatus { Done = 0, ExpectFailed = 1, Wrong = 2, NoAnswer = 3, RunTimeError = 4 };

/// Thrown inside a command, which does not know where it stands in the script.
struct ScriptFault {
  ScriptStatus status;
  std::string what;
};

/// What became of a script: `message` is "SCRIPT:LINE: what", empty for Done.
struct ScriptResult {
  ScriptStatus status = ScriptStatus::Done;
  std::string message = {};
};

[[noreturn]] inline void ScriptIsWrong(const std::string& what) {
  throw ScriptFault{ScriptStatus::Wrong, what};
}

}  // namespace kelp
