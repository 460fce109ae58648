#include "desktop/machine/desktop_run.hpp"

#include <QAbstractButton>
#include <QPushButton>

#include "core/config.hpp"
#include "core/text.hpp"
#include "desktop/machine/first_start.hpp"
#include "desktop/machine/paths.hpp"
#include "desktop/machine/settings_dialog.hpp"
#include "platform/host.hpp"

namespace kelp {

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
      disk_(MakeHostDisk(drives_), [this](const std::string& path) { Written(path); }),
      simulated_(options_.Seed),
      line_([this](int port) { return Device(port); }, [this] { return simulated_.NextLine(kelp_); }),
      platform_(disk_, drives_, line_, settings_.Editor, settings_.Printer),
      kelp_(platform_),
      runner_(kelp_),
      windows_(kelp_, [this](const Event& event) { return runner_.Post(event); }),
      cues_(kelp_, sound_) {
  line_.Simulate(options_.Instrument == InstrumentKind::Simulated);
  ConnectParts();
  windows_.RestoreGeometry(KeptGeometry());
}

void DesktopRun::ConnectParts() {
  ShowScreensIn(windows_, platform_.Screens);
  platform_.Screens.DialogOpens = [this] { runner_.DialogOpens(); };
  platform_.Screens.DialogClosed = [this] { runner_.DialogClosed(); };
  platform_.Question = [this] { sound_.Play(Cue::Attention); };
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
    cues_.Listen(typed);
  };
  runner_.End = [this] { End(); };

  QObject::connect(windows_.MachineSettingsButton(), &QPushButton::clicked, &runner_,
                   [this] { ChangeSettings(); });
  sound_.On = settings_.Sound;
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
  const FirstChoice choice =
      AskFirstChoice(FromPath(drives_.DriveFolder('c')), QString::fromStdString(Device(1)));
  line_.Simulate(choice == FirstChoice::Simulate);
  if (choice == FirstChoice::Settings) ChangeSettings();
  Keep();
}

void DesktopRun::ChangeSettings() {
  const DialogTime rest(platform_.Screens);
  SettingsDialog dialog(windows_.FrontWindow(), settings_, options_, line_.IsSimulated());
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
  Keep();
}

void DesktopRun::Keep() {
  const QString trouble = SaveSettings(settings_);
  if (!trouble.isEmpty())
    platform_.Ask({trouble.toStdString(), "Machine settings", Buttons::Ok, Icon::Exclamation});
}

// The lock is refreshed every minute; what the analyst looks for are the station's files.
void DesktopRun::Written(const std::string& path) {
  if (!EndsWith(path, ".lck")) windows_.SetLastFile(QString::fromStdString(path));
}

int DesktopRun::PortNumber() const { return static_cast<int>(CfgNumber(kelp_.run, kCfgComport)); }

void DesktopRun::End() {
  KeepGeometry(windows_.Geometry());
  line_.Close();
  for (const std::string& screen : kelp_.Shown) windows_.Hide(screen);
  Ended();
}

}  // namespace kelp
