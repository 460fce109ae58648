#include "desktop/windows/windows.hpp"

#include <QApplication>
#include <QComboBox>
#include <QDataStream>
#include <QIODevice>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QWindow>

#include "app/focus.hpp"
#include "desktop/windows/forms.hpp"
#include "desktop/windows/frm_acquire.hpp"
#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/keys.hpp"
#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

constexpr int kTwipsPerPixel = 15;

QAbstractButton* MakeSoundSwitch() {
  auto* button = new QToolButton;
  button->setCheckable(true);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  button->setToolTip("A short sound when a value was saved and when a question comes up");
  const auto name = [button](bool on) { button->setText(on ? "Sound on" : "Sound off"); };
  QObject::connect(button, &QToolButton::toggled, button, name);
  name(false);
  return button;
}

// Windows that belong to a run stay in front of the acquisition screen.
bool BelongsToRun(const std::string& screen) {
  return screen != "frmMain" && screen != "frmAcquire" && screen != "frmEditCFG";
}

}  // namespace

Windows::Windows(Kelp& kelp, std::function<bool(const Event&)> post)
    : kelp_(kelp),
      post_(std::move(post)),
      machineSettings_(new QPushButton("Machine settings...")),
      soundSwitch_(MakeSoundSwitch()) {
  machineSettings_->setToolTip("Folders of the drives, devices of the serial ports, the text editor");
  machineSettings_->setFocusPolicy(Qt::TabFocus);
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
  if (screen == "frmMain") return MakeFrmMain(kelp_, report, machineSettings_);
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

void Windows::Send(const Event& event) {
  // While an event is handled (a message box is up, a station is being saved) there is no other.
  if (sending_ || kelp_.Ended) return;
  SendFocus();
  sending_ = true;
  post_(event);
  sending_ = false;
  // Enter may put the focus where the program has it already, while a widget beside it has it here.
  if (event.Kind == EventKind::Key && event.Key == kKeyEnter) shownFocus_ = {};
  ShowChanges();
}

// The focus moves in the middle of Qt's own work (a mouse press, a window's activation); the program
// hears of it afterwards, but before anything else that the operator does.
void Windows::TakeFocus(const FocusPlace& place) {
  if (sending_) return;
  focusToSend_ = place;
  QMetaObject::invokeMethod(
      this, [this] { SendFocus(); }, Qt::QueuedConnection);
}

void Windows::SendFocus() {
  if (!focusToSend_ || sending_) return;
  const FocusPlace place = *std::exchange(focusToSend_, std::nullopt);
  shownFocus_ = place;
  Send({.Kind = EventKind::Focus, .Place = place});
}

// Puts the focus where the program moved it. A box that is reached in this way is ready to be typed
// over.
void Windows::ShowFocus() {
  const FocusPlace& now = kelp_.Focus;
  const auto same = [&](const FocusPlace& other) {
    return now.Screen == other.Screen && now.Control == other.Control && now.Index == other.Index;
  };
  if (same(shownFocus_)) return;
  shownFocus_ = now;
  QWidget* widget = WidgetOf(now);
  if (widget == nullptr || widget->window()->focusWidget() == widget) return;
  widget->setFocus(Qt::OtherFocusReason);
  if (auto* edit = qobject_cast<QLineEdit*>(widget)) edit->selectAll();
  if (auto* combo = qobject_cast<QComboBox*>(widget)) combo->lineEdit()->selectAll();
}

void Windows::Show(const std::string& screen) {
  auto* window = static_cast<ScreenWindow*>(WindowOf(screen));
  if (window == nullptr) return;
  if (!window->isVisible()) {
    window->ShowChanges();
    Place(*window);
    const FocusPlace place = FocusOn(kelp_, screen);
    if (QWidget* widget = window->Controls.Find(place.Control, place.Index)) widget->setFocus();
    if (screen == "frmAcquire" && window->isMaximized())
      window->showMaximized();
    else
      window->show();
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

// Where a window comes up: where it was the last time, else over the window in front.
void Windows::Place(ScreenWindow& window) {
  const std::string& screen = window.Screen();
  window.winId();
  QWidget* owner = BelongsToRun(screen) && acquire_ != nullptr && acquire_->isVisible() ? acquire_ : nullptr;
  window.windowHandle()->setTransientParent(owner == nullptr ? nullptr : owner->windowHandle());
  if (const auto kept = geometry_.find(screen);
      kept != geometry_.end() && window.restoreGeometry(kept->second))
    return;
  const QRect space = (owner == nullptr ? window.screen() : owner->screen())->availableGeometry();
  QSize size = window.sizeHint();
  if (screen == "frmAcquire") size = size.expandedTo({space.width() * 9 / 10, space.height() * 9 / 10});
  window.resize(size.boundedTo(space.size() - QSize(8, 40)));
  QRect place(QPoint(), window.size());
  place.moveCenter(owner == nullptr ? space.center() : owner->geometry().center());
  if (screen == "frmWhatsNext")
    place.moveTop(
        std::min(space.top() + kelp_.frmWhatsNext.Top / kTwipsPerPixel, space.bottom() - place.height()));
  window.move(place.topLeft());
  if (screen == "frmAcquire" && space.height() < 900) window.setWindowState(Qt::WindowMaximized);
}

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

QByteArray Windows::Geometry() const {
  std::map<std::string, QByteArray> kept = geometry_;
  for (const auto& [name, window] : windows_)
    if (window->isVisible()) kept[name] = window->saveGeometry();
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  for (const auto& [name, geometry] : kept) stream << FromProgram(name) << geometry;
  return bytes;
}

void Windows::RestoreGeometry(const QByteArray& geometry) {
  QDataStream stream(geometry);
  while (!stream.atEnd() && stream.status() == QDataStream::Ok) {
    QString name;
    QByteArray kept;
    stream >> name >> kept;
    if (stream.status() == QDataStream::Ok) geometry_[ToProgram(name)] = kept;
  }
}

bool Windows::eventFilter(QObject* object, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type != QEvent::KeyPress && type != QEvent::ShortcutOverride && type != QEvent::FocusIn) return false;
  if (!object->isWidgetType()) return false;
  auto* widget = static_cast<QWidget*>(object);
  ScreenWindow* window = WindowAround(widget);
  if (window == nullptr) return false;
  const FocusPlace* place = window->Controls.PlaceOf(widget);
  if (type == QEvent::FocusIn) {
    if (place != nullptr) TakeFocus(*place);
    return false;
  }
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (type == QEvent::ShortcutOverride) {
    if (IsProgramKey(key)) event->accept();
    return IsProgramKey(key);
  }
  // A key that a widget leaves is offered to its parents too; the program has had its say by then.
  const QWidget* focus = window->focusWidget();
  if (focus != nullptr && focus != widget) return false;
  const auto meaning = EventOfKey(key, *widget, window->Screen(), place);
  if (!meaning) return false;
  // A key held down is one key press: a second save must be meant.
  const bool typing = meaning->Kind == EventKind::Key && meaning->Key < 256 && meaning->Key != kKeyEnter &&
                      dynamic_cast<GridView*>(widget) != nullptr;
  if (!key.isAutoRepeat() || typing) Send(*meaning);
  return true;
}

}  // namespace kelp
