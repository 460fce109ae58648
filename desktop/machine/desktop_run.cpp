// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/desktop_run.hpp"

#include <QAbstractButton>
#include <QPushButton>

#include "core/config.hpp"
#include "core/text.hpp"
#include "desktop/machine/file_dialog.hpp"
#include "desktop/machine/first_start.hpp"
#include "desktop/machine/paths.hpp"
#include "desktop/machine/settings_dialog.hpp"
#include "desktop/windows/look.hpp"
#include "platform/host.hpp"

namespace kelp {

namespace {

constexpr int kAlarmEvery = 3000;

}  // namespace

void ShowScreensIn(Windows& windows, ScreenHost& screens) {
  screens.Shown = [&](const std::string& screen) { windows.Show(screen); };
  screens.Hidden = [&](const std::string& screen) { windows.Hide(screen); };
  screens.Raised = [&](const std::string& screen) { windows.Raise(screen); };
  screens.Front = [&] { return windows.FrontWindow(); };
  screens.DialogOpens = [&] { windows.ShowChanges(); };
}

DesktopRun::DesktopRun(Options options)
    : options_(std::move(options)),
      settings_(LoadSettings()),
      drives_(DrivesFor(settings_, options_)),
      disk_(MakeHostDisk(drives_),
            [this](const std::string& path) {
              // The lock and the temporary copy are written all the time; what the analyst looks for are the
              // station's files.
              if (EndsWith(path, ".lck") || EndsWith(path, ".tmp")) return;
              // A log is written beside the windows' own thread.
              QMetaObject::invokeMethod(&runner_,
                                        [this, path] { windows_.SetLastFile(QString::fromStdString(path)); });
            }),
      simulated_(options_.Seed),
      line_([this](int port) { return Device(port); }, [this] { return simulated_.NextLine(kelp_); }),
      platform_(disk_, drives_, line_, settings_.Editor, settings_.Printer),
      kelp_(platform_),
      runner_(kelp_),
      windows_(kelp_, [this](const Event& event) { return runner_.Post(event); }),
      cues_(kelp_),
      alarm_(
          kAlarmEvery, [this] { return windows_.AlarmCalls(); }, [this] { sound_.Play(Cue::Alarm); }) {
  line_.Simulate(options_.Instrument == InstrumentKind::Simulated);
  ConnectParts();
  windows_.RestoreGeometry(KeptGeometry());
}

void DesktopRun::ConnectParts() {
  ShowScreensIn(windows_, platform_.Screens);
  platform_.Screens.DialogOpens = [this] { runner_.DialogOpens(); };
  platform_.Screens.DialogClosed = [this] { runner_.DialogClosed(); };
  platform_.Question = [this] { sound_.Play(Cue::Question); };
  platform_.ShowsPreview = [this] { return settings_.Preview; };
  platform_.PdfPath = [this] { return kelp_.run.PrnFile.substr(0, kelp_.run.PrnFile.rfind('.')) + ".pdf"; };
  platform_.PrinterChosen = [this](const QString& printer) {
    settings_.Printer = printer;
    Keep();
  };
  const auto showPort = [this] { windows_.SetPortState(QString::fromStdString(line_.State())); };
  line_.OnBytes = [this, showPort] {
    runner_.BytesCame();
    showPort();
  };
  runner_.ShowChanges = [this] { windows_.ShowChanges(); };
  runner_.After = [this, showPort](bool typed) {
    showPort();
    Listen(typed);
  };
  runner_.End = [this] { End(); };

  QObject::connect(windows_.MachineSettingsButton(), &QPushButton::clicked, &runner_,
                   [this] { ChangeSettings(); });
  QObject::connect(windows_.ReviewButton(), &QPushButton::clicked, &runner_, [this] { OpenReview(); });
  windows_.ProfileWanted = [this] { ToggleProfile(); };
  TakeLookAndSound();
  windows_.SoundSwitch()->setChecked(settings_.Sound);
  QObject::connect(windows_.SoundSwitch(), &QAbstractButton::toggled, &runner_, [this](bool on) {
    sound_.On = settings_.Sound = on;
    Keep();
  });
}

void DesktopRun::Start() {
  if (!SaysWhere(options_) && !SettingsAreKept()) WelcomeFirst();
  runner_.Start();
}

void DesktopRun::WelcomeFirst() {
  ShowProgramIcon();
  FirstStart page(settings_, options_);
  const bool taken = page.exec() == QDialog::Accepted;
  if (taken) TakeSettings(page.Settings(), page.Simulate());
  if (page.WantsSettings()) ChangeSettings();
  Keep();
}

void DesktopRun::OpenReview() {
  if (!review_)
    review_ = std::make_unique<ReviewWindow>(
        kelp_, [this] { return AskForFolder(review_.get(), kelp_.run.DataOutPath, drives_); });
  review_->show();
  review_->raise();
  review_->activateWindow();
  review_->Open(WithBackslash(CfgValue(kelp_.run, kCfgDataPath)));
}

void DesktopRun::ToggleProfile() {
  if (!profile_) profile_ = std::make_unique<RunningProfile>(kelp_);
  profile_->Toggle();
}

void DesktopRun::TakeLookAndSound() {
  sound_.On = settings_.Sound;
  sound_.Off = settings_.SoundsOff;
  ApplyScheme(settings_.Scheme);
}

// What has just become due, and the alarm for as long as nobody has seen it.
void DesktopRun::Listen(bool typed) {
  if (const auto cue = cues_.Listen(typed, GlanceAt(kelp_).State)) sound_.Play(*cue);
  alarm_.Look();
}

void DesktopRun::ChangeSettings() {
  const DialogTime rest(platform_.Screens);
  SettingsDialog dialog(windows_.FrontWindow(), settings_, options_, line_.IsSimulated());
  dialog.Hear = [this](Cue cue) { sound_.PlayNow(cue); };
  if (dialog.exec() == QDialog::Accepted) TakeSettings(dialog.Settings(), dialog.Simulate());
}

// Acts at once. A line that turns out to be another one is closed; a running read loop opens the new one
// within a second, else the next click on the run's button does.
void DesktopRun::TakeSettings(const MachineSettings& settings, bool simulate) {
  try {
    drives_ = DrivesFor(settings, options_);
  } catch (const FileError& error) {
    platform_.Ask({error.what(), "Machine settings", Buttons::Ok, Icon::Critical});
    return;
  }
  const std::string before = Device(PortNumber());
  settings_ = settings;
  if (Device(PortNumber()) != before) line_.Close();
  line_.Simulate(simulate);
  TakeLookAndSound();
  Keep();
}

void DesktopRun::Keep() {
  const QString trouble = SaveSettings(settings_);
  if (!trouble.isEmpty())
    platform_.Ask({trouble.toStdString(), "Machine settings", Buttons::Ok, Icon::Exclamation});
}

int DesktopRun::PortNumber() const { return static_cast<int>(CfgNumber(kelp_.run, kCfgComport)); }

void DesktopRun::End() {
  KeepGeometry(windows_.Geometry());
  line_.Close();
  // Only hidden: the review may be in the middle of reading a folder.
  if (review_) review_->hide();
  if (profile_) profile_->hide();
  for (const std::string& screen : kelp_.Shown) windows_.Hide(screen);
  Ended();
}

}  // namespace kelp
