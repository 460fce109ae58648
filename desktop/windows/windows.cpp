// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/windows/windows.hpp"

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include "app/focus.hpp"
#include "desktop/windows/accessible.hpp"
#include "desktop/windows/forms.hpp"
#include "desktop/windows/frm_acquire.hpp"
#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

QAbstractButton* MakeSoundSwitch() {
  auto* button = new QToolButton;
  button->setCheckable(true);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  button->setToolTip("Sounds for values, acid, questions and alarms; Machine settings choose which");
  const auto name = [button](bool on) { button->setText(on ? "Sound on" : "Sound off"); };
  QObject::connect(button, &QToolButton::toggled, button, name);
  name(false);
  return button;
}

}  // namespace

Windows::Windows(Kelp& kelp, std::function<bool(const Event&)> post)
    : kelp_(kelp),
      post_(std::move(post)),
      machineSettings_(new QPushButton("&Machine settings...")),
      review_(new QPushButton("Re&view cruise...")),
      soundSwitch_(MakeSoundSwitch()) {
  machineSettings_->setToolTip(
      "Folders of the drives, devices of the serial ports, colours, sounds, the text editor");
  review_->setToolTip("Profiles, control charts, checks, calibration and final data of the saved stations");
  for (QPushButton* button : {machineSettings_, review_}) {
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoDefault(true);
  }
  MakeAccessible();
  // A screen is hidden before the next one is shown: that is not the end of the program.
  QGuiApplication::setQuitOnLastWindowClosed(false);
  windows_["frmMain"] = Make("frmMain");
  qApp->installEventFilter(this);
}

Windows::~Windows() {
  if (acquire_ == nullptr) delete soundSwitch_;
}

std::unique_ptr<ScreenWindow> Windows::Make(const std::string& screen) {
  const Report report = [this](const Event& event) { Send(event); };
  if (screen == "frmMain") return MakeFrmMain(kelp_, report, review_, machineSettings_);
  if (screen == "frmLogin") return MakeFrmLogin(kelp_, report);
  if (screen == "frmCreateBase") return MakeFrmCreateBase(kelp_, report);
  if (screen == "frmWhatsNext") return MakeFrmWhatsNext(kelp_, report);
  if (screen == "frmProgress") return MakeFrmProgress(kelp_, report);
  if (screen == "frmChangeStep") return MakeFrmChangeStep(kelp_, report);
  if (screen == "dlgRunRem") return MakeDlgRunRem(kelp_, report);
  if (screen == "frmRecalc") return MakeFrmRecalc(kelp_, report);
  if (screen == "frmEditCFG") return MakeFrmEditCFG(kelp_, report);
  if (screen != "frmAcquire") return nullptr;
  auto window = std::make_unique<FrmAcquireWindow>(kelp_, report, soundSwitch_);
  acquire_ = window.get();
  acquire_->SetPortState(portState_);
  acquire_->SetLastFile(lastFile_);
  return window;
}

ScreenWindow* Windows::Built(const std::string& screen) const {
  const auto found = windows_.find(screen);
  return found == windows_.end() ? nullptr : found->second.get();
}

QWidget* Windows::WindowOf(const std::string& screen) {
  if (ScreenWindow* window = Built(screen)) return window;
  auto window = Make(screen);
  if (window == nullptr) return nullptr;
  window->ShowChanges();
  return (windows_[screen] = std::move(window)).get();
}

QWidget* Windows::WidgetOf(const FocusPlace& place) {
  const ScreenWindow* window = Built(place.Screen);
  return window == nullptr ? nullptr : window->Controls.Find(place.Control, place.Index);
}

ScreenWindow* Windows::WindowAround(const QWidget* widget) const {
  for (const auto& [name, window] : windows_)
    if (window.get() == widget->window()) return window.get();
  return nullptr;
}

void Windows::ShowChanges() {
  for (const auto& [name, window] : windows_)
    if (window->isVisible()) window->ShowChanges();
  ShowFocus();
}

void Windows::Show(const std::string& screen) {
  if (WindowOf(screen) == nullptr) return;
  ScreenWindow* window = Built(screen);
  if (!window->isVisible()) {
    window->ShowChanges();
    Place(*window);
    const FocusPlace place = FocusOn(kelp_, screen);
    if (QWidget* widget = window->Controls.Find(place.Control, place.Index)) GiveFocus(widget);
    window->show();
    // The icon follows the first window: reading it takes a sixth of the time to that.
    constexpr int kSoon = 50;
    if (QApplication::windowIcon().isNull()) QTimer::singleShot(kSoon, qApp, ShowProgramIcon);
    if (screen == "frmWhatsNext" || screen == "frmRecalc") {
      resting_ = window;
      rest_.setRemainingTime(KeyRest);
    }
  }
  window->raise();
  window->activateWindow();
  // The notice is up while the program is busy: it is drawn at once.
  if (screen == "frmProgress") QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void Windows::Hide(const std::string& screen) {
  ScreenWindow* window = Built(screen);
  if (window == nullptr || !window->isVisible()) return;
  geometry_[screen] = window->saveGeometry();
  window->hide();
}

void Windows::Raise(const std::string& screen) { Show(screen); }

QWidget* Windows::FrontWindow() {
  for (const std::string& screen : kelp_.Shown)
    if (ScreenWindow* window = Built(screen); window != nullptr && window->isVisible()) return window;
  return nullptr;
}

bool Windows::AlarmCalls() const { return acquire_ != nullptr && acquire_->AlarmCalls(); }

void Windows::SetPortState(const QString& text) {
  if (text == portState_) return;
  portState_ = text;
  if (acquire_ != nullptr) acquire_->SetPortState(text);
}

void Windows::SetLastFile(const QString& text) {
  if (text == lastFile_) return;
  lastFile_ = text;
  if (acquire_ != nullptr) acquire_->SetLastFile(text);
}

}  // namespace kelp
