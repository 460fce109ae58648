// SPDX-License-Identifier: GPL-3.0-or-later
// A run of the desktop program: the machine under it, the program, its windows, and what ties them
// together.
#pragma once

#include <QByteArray>
#include <functional>
#include <memory>
#include <string>

#include "desktop/machine/fluorometer_line.hpp"
#include "desktop/machine/machine_settings.hpp"
#include "desktop/machine/noticing_disk.hpp"
#include "desktop/machine/qt_platform.hpp"
#include "desktop/machine/repeated_sound.hpp"
#include "desktop/machine/runner.hpp"
#include "desktop/machine/sound.hpp"
#include "desktop/review/review_window.hpp"
#include "desktop/review/running_profile.hpp"
#include "desktop/windows/windows.hpp"
#include "simulator/simulated_operator.hpp"

namespace kelp {

/// Shows the program's screens in its windows, and its dialogs over them.
void ShowScreensIn(Windows& windows, ScreenHost& screens);

class DesktopRun {
 public:
  /// Throws FileError when the drives have no place.
  explicit DesktopRun(Options options);

  /// Called once, when the program has ended and its windows are closed.
  std::function<void()> Ended = [] {};

  /// Starts the program; on a first start on this machine tells first where the files will lie.
  void Start();

  Kelp& program() { return kelp_; }
  Windows& windows() { return windows_; }
  bool Post(const Event& event) { return runner_.Post(event); }

 private:
  void ConnectParts();
  void OpenReview();
  void ToggleProfile();
  void WelcomeFirst();
  void Listen(bool typed);
  void ChangeSettings();
  void TakeSettings(const MachineSettings& settings, bool simulate);
  void Keep();
  void TakeLookAndSound();
  [[nodiscard]] int PortNumber() const;
  [[nodiscard]] std::string Device(int port) const { return DeviceFor(port, settings_, options_); }
  void End();

  Options options_;
  MachineSettings settings_;
  DriveMap drives_;
  NoticingDisk disk_;
  SimulatedOperator simulated_;
  FluorometerLine line_;
  QtPlatform platform_;
  Kelp kelp_;
  Runner runner_;
  Windows windows_;
  Sound sound_;
  CueListener cues_;
  RepeatedSound alarm_;  ///< until it is seen
  // Built when they are first wanted: a start must not wait for them.
  std::unique_ptr<ReviewWindow> review_ = {};
  std::unique_ptr<RunningProfile> profile_ = {};
};

}  // namespace kelp
