// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/window_script_host.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <iostream>

#include "app/focus.hpp"
#include "desktop/machine/desktop_run.hpp"
#include "platform/host.hpp"
#include "script/player.hpp"
#include "script/this_machine.hpp"
#include "simulator/simulated_operator.hpp"

namespace kelp {

namespace {

constexpr int kBetweenPictures = 16;  // milliseconds: more than a display shows

// The keys that mean the same whatever has the focus; Tab and characters depend on what the widget holds
// marked, and go straight to the program.
int QtKeyOf(int key) {
  if (key >= kKeyF1 && key <= kKeyF12) return Qt::Key_F1 + key - kKeyF1;
  if (key == kKeyEnter) return Qt::Key_Return;
  return 0;
}

void PressKey(QWidget* widget, int key) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
  }
}

}  // namespace

WindowScriptHost::WindowScriptHost(Kelp& kelp, ScriptMachine& machine)
    : OwnTimeHost(kelp, machine),
      script_(machine),
      windows_(kelp, [this](const Event& event) { return FromWidget(event); }) {
  windows_.KeyRest = 0;
  ShowScreensIn(windows_, machine.Screens);
  Changed = [this] { ShowNow(); };
  shown_.start();
}

// The script alone moves the focus: where the window system puts it depends on the machine.
bool WindowScriptHost::FromWidget(const Event& event) {
  if (event.Kind != EventKind::Focus) posted_ = OwnTimeHost::Post(event);
  return posted_;
}

bool WindowScriptHost::DoToWidget(const Event& event) {
  if (event.Kind == EventKind::Click) {
    auto* button = qobject_cast<QAbstractButton*>(windows_.WidgetOf(event.Place));
    if (button == nullptr || !button->isVisible() || !button->isEnabled()) return false;
    button->click();
    return true;
  }
  if (event.Kind != EventKind::Key || QtKeyOf(event.Key) == 0) return false;
  const Window* screen = FindWindow(program(), event.Place.Screen);
  if (screen == nullptr || !screen->Visible) return false;
  QWidget* focus = windows_.WidgetOf(FocusOn(program(), event.Place.Screen));
  if (focus == nullptr || focus->window()->focusWidget() != focus) return false;
  PressKey(focus, QtKeyOf(event.Key));
  return true;
}

void WindowScriptHost::Start() {
  OwnTimeHost::Start();
  script_.TellMissingAnswer();
}

bool WindowScriptHost::Post(const Event& event) {
  posted_ = false;
  const bool done = DoToWidget(event) ? posted_ : OwnTimeHost::Post(event);
  script_.TellMissingAnswer();
  return done;
}

bool WindowScriptHost::Let(std::int64_t milliseconds, const std::function<bool()>& until) {
  const bool reached =
      OwnTimeHost::Let(milliseconds, [&] { return script_.AnswerIsMissing() || (until && until()); });
  script_.TellMissingAnswer();
  return reached;
}

// Pictures come as fast as a display shows them, however fast the program's own time runs.
void WindowScriptHost::ShowNow() {
  windows_.ShowChanges();
  if (shown_.elapsed() < kBetweenPictures) return;
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  shown_.restart();
}

ScriptResult PlayInWindows(const Options& options) try {
  const DriveMap drives = DrivesFor(LoadSettings(), options);
  const auto disk = MakeHostDisk(drives, options.Quick ? Appends::Quick : Appends::Flushed);
  ScriptMachine machine(*disk);
  const auto kelp = std::make_unique<Kelp>(machine);
  WindowScriptHost host(*kelp, machine);
  PutOnThisMachine(machine, host, options);
  SimulatedOperator simulated(options.Seed);
  if (options.Instrument == InstrumentKind::Simulated)
    host.Connect([&](const Kelp& program) { return simulated.NextLine(program); });
  return ScriptPlayer(host).Play(options.Script, std::cin);
} catch (const std::exception& error) {
  return {ScriptStatus::Wrong, options.Script + ":0: " + error.what()};
}

}  // namespace kelp
