// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program in its windows, on a scripted platform and a disk in memory.
#pragma once

#include <string>

#include "app/door.hpp"
#include "core/config.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "desktop/windows/windows.hpp"
#include "platform/scripted.hpp"
#include "tests/support/memory_disk.hpp"

namespace kelp {

/// A scripted platform whose screens are the real windows.
struct WindowPlatform : ScriptedPlatform {
  using ScriptedPlatform::ScriptedPlatform;
  Windows* windows = nullptr;

  void ScreenShown(const std::string& screen) override { windows->Show(screen); }
  void ScreenHidden(const std::string& screen) override { windows->Hide(screen); }
  void ScreenRaised(const std::string& screen) override { windows->Raise(screen); }
};

struct Desk {
  MemoryDisk disk = {};
  WindowPlatform platform{disk};
  Kelp kelp{platform};
  std::vector<Event> events = {};  ///< what the windows reported
  Windows windows{kelp, [this](const Event& event) {
                    events.push_back(event);
                    return Post(kelp, event);
                  }};

  Desk() {
    using namespace std::chrono;
    platform.windows = &windows;
    windows.KeyRest = 0;
    platform.SetClock(local_days{year{2026} / 11 / 24} + hours{3});
    SetDefaultConfig(kelp.run);
    SaveConfig(kelp);
  }

  void Do(const Event& event) {
    Post(kelp, event);
    windows.ShowChanges();
  }
  void Click(const std::string& screen, const std::string& control, int index = -1) {
    Do({.Kind = EventKind::Click, .Place = {screen, control, index}});
  }

  /// `count` instrument lines, a second apart, each followed by a pass.
  void Read(double value, int count = 1) {
    for (int i = 0; i < count; ++i) {
      platform.Feed("\r\nA =" + Padded(Fixed(value, 4), 7, "L", "S") + " (RAW)");
      platform.Advance(1000);
      Pass(kelp);
      windows.ShowChanges();
    }
  }

  /// Start-up, login and a new station of `samples` samples; "&Start" is up afterwards.
  void OpenStation(int samples) {
    Start(kelp);
    Click("frmMain", "Command1", 0);
    platform.QueueAnswer(Answer::Yes);
    Click("frmLogin", "cmdOK");
    Do({.Kind = EventKind::Edit, .Place = {"frmCreateBase", "Text1", 2}, .Text = std::to_string(samples)});
    Click("frmCreateBase", "cmdCreateBase", 0);
  }
};

}  // namespace kelp
