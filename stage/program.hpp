// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program on a scripted platform and a disk in memory, with the operator's doings as short
// calls.
#pragma once

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "app/door.hpp"
#include "app/focus.hpp"
#include "core/config.hpp"
#include "core/find_control.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/scripted.hpp"
#include "stage/memory_disk.hpp"

namespace kelp {

template <class PlatformUsed>
struct ProgramOn {
  MemoryDisk disk = {};
  PlatformUsed platform{disk};
  Kelp kelp{platform};
  std::function<void()> Changed = [] {};  ///< called after each of the operator's doings and each pass

  ProgramOn() {
    using namespace std::chrono;
    platform.SetClock(local_days{year{2026} / 11 / 24} + hours{3});
    SetDefaultConfig(kelp.run);
    SaveConfig(kelp);
  }

  FrmAcquire& form() { return kelp.frmAcquire; }
  RunState& run() { return kelp.run; }
  std::string& caption() { return kelp.frmAcquire.Command1.Caption; }
  std::string& cell(int row, int col) { return kelp.frmAcquire.datalog.Text(row, col); }

  /// Writes a value over a configuration line's field, in the file and in memory.
  void Configure(int line, const std::string& value) {
    RewriteField(kelp.run.CfgLines[static_cast<std::size_t>(line)], Padded(value, 35, "R", "S"));
    kelp.ConfigKnown = disk.Files[Lower(kConfigPath)];
    SaveConfig(kelp);
  }

  void Answers(std::initializer_list<Answer> answers) {
    for (const Answer answer : answers) platform.QueueAnswer(answer);
  }

  bool Do(const Event& event) {
    // A mistyped name would pass for an event that does nothing.
    const FocusPlace& place = event.Place;
    const bool wrong = place.Control.empty() ? FindWindow(kelp, place.Screen) == nullptr
                                             : ControlAt(kelp, place).index() == 0;
    if (wrong) throw std::logic_error("there is no " + place.Screen + "." + place.Control);
    const bool done = Post(kelp, event);
    Changed();
    return done;
  }
  bool Click(std::string_view screen, std::string_view control, int index = -1) {
    return Do({.Kind = EventKind::Click, .Place = {std::string(screen), std::string(control), index}});
  }
  bool DblClick(std::string_view screen, std::string_view control, int index = -1) {
    return Do({.Kind = EventKind::DblClick, .Place = {std::string(screen), std::string(control), index}});
  }
  bool Key(std::string_view screen, int key) {
    return Do({.Kind = EventKind::Key, .Place = {std::string(screen)}, .Key = key});
  }
  /// Replaces a control's text and leaves the control.
  void Type(std::string_view screen, std::string_view control, int index, const std::string& text) {
    const FocusPlace place{std::string(screen), std::string(control), index};
    Do({.Kind = EventKind::Focus, .Place = place});
    Do({.Kind = EventKind::Edit, .Place = place, .Text = text});
    Key(screen, kKeyTab);
  }

  /// `count` instrument lines, a second apart, each followed by a pass.
  void Read(double value, int count = 1) {
    for (int i = 0; i < count; ++i) {
      platform.Feed("\r\nA =" + Padded(Fixed(value, 4), 7, "L", "S") + " (RAW)");
      platform.Advance(1000);
      Pass(kelp);
      Changed();
    }
  }

  /// Start-up and login, with the answers to what is asked then; on another program's disk if one is given.
  void LogIn(std::initializer_list<Answer> answers, const MemoryDisk* other = nullptr) {
    if (other != nullptr) disk.Files = other->Files, disk.Folders = other->Folders;
    Answers(answers);
    Start(kelp);
    Click("frmMain", "Command1", 0);
    Click("frmLogin", "cmdOK");
  }

  /// A new station of `samples` samples; "&Start" is up afterwards.
  void OpenStation(int samples) {
    LogIn({Answer::Yes});
    Type("frmCreateBase", "Text1", 1, "93.3 70");
    Type("frmCreateBase", "Text1", 2, std::to_string(samples));
    Click("frmCreateBase", "cmdCreateBase", 0);
  }

  /// The text of the newest message box; "" when there was none.
  std::string LastBox() { return platform.Boxes.empty() ? "" : platform.Boxes.back().message.Text; }
};
using Program = ProgramOn<ScriptedPlatform>;

}  // namespace kelp
