// SPDX-License-Identifier: GPL-3.0-or-later
// Plays an operator script in the real windows: clicks and keys go through the widgets, what a widget
// can't be made to do goes straight to the program. Time is the program's own, as on the console, so
// that the same script writes the same files.
#pragma once

#include <QElapsedTimer>

#include "desktop/machine/command_line.hpp"
#include "desktop/machine/script_machine.hpp"
#include "desktop/windows/windows.hpp"
#include "script/failure.hpp"
#include "script/own_time.hpp"

namespace kelp {

class WindowScriptHost : public OwnTimeHost {
 public:
  WindowScriptHost(Kelp& kelp, ScriptMachine& machine);

  void Start() override;
  bool Post(const Event& event) override;
  bool Let(std::int64_t milliseconds, const std::function<bool()>& until) override;

 private:
  bool FromWidget(const Event& event);
  [[nodiscard]] bool DoToWidget(const Event& event);
  void ShowNow();

  ScriptMachine& script_;
  Windows windows_;
  bool posted_ = false;  ///< the program took the event that a widget reported
  QElapsedTimer shown_ = {};
};

/// Plays the script of the options. The result is the console's.
ScriptResult PlayInWindows(const Options& options);

}  // namespace kelp
