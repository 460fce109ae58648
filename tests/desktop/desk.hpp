// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program in its windows, on a scripted platform and a disk in memory.
#pragma once

#include "desktop/windows/windows.hpp"
#include "stage/program.hpp"

namespace kelp {

/// A scripted platform whose screens are the real windows.
struct WindowPlatform : ScriptedPlatform {
  using ScriptedPlatform::ScriptedPlatform;
  Windows* windows = nullptr;

  void ScreenShown(const std::string& screen) override { windows->Show(screen); }
  void ScreenHidden(const std::string& screen) override { windows->Hide(screen); }
  void ScreenRaised(const std::string& screen) override { windows->Raise(screen); }
};

struct Desk : ProgramOn<WindowPlatform> {
  std::vector<Event> events = {};  ///< what the windows reported
  Windows windows{kelp, [this](const Event& event) {
                    events.push_back(event);
                    return Post(kelp, event);
                  }};

  Desk() {
    platform.windows = &windows;
    windows.KeyRest = 0;
    Changed = [this] { windows.ShowChanges(); };
  }
};

}  // namespace kelp
