// SPDX-License-Identifier: GPL-3.0-or-later
// What the windows do for the machine under the program: show screens, and carry dialogs.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

namespace kelp {

struct ScreenHost {
  std::function<void(const std::string&)> Shown = [](const std::string&) {};
  std::function<void(const std::string&)> Hidden = [](const std::string&) {};
  std::function<void(const std::string&)> Raised = [](const std::string&) {};
  /// The window over which a dialog opens.
  std::function<QWidget*()> Front = [] { return nullptr; };
  /// A modal dialog is about to open: what changed is shown, and passes and ticks rest until it closed.
  std::function<void()> DialogOpens = [] {};
  std::function<void()> DialogClosed = [] {};
};

/// Passes and ticks rest while one of these is alive.
class DialogTime {
 public:
  explicit DialogTime(const ScreenHost& screens) : screens_(screens) { screens_.DialogOpens(); }
  ~DialogTime() { screens_.DialogClosed(); }
  DialogTime(const DialogTime&) = delete;
  DialogTime& operator=(const DialogTime&) = delete;

 private:
  const ScreenHost& screens_;
};

}  // namespace kelp
