// SPDX-License-Identifier: GPL-3.0-or-later
// What the operator does: events to the program, keys taken before the widgets have them, and the focus
// in both directions.
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

#include "desktop/windows/grid_view.hpp"
#include "desktop/windows/keys.hpp"
#include "desktop/windows/windows.hpp"

namespace kelp {

namespace {

bool SamePlace(const FocusPlace& a, const FocusPlace& b) {
  return a.Screen == b.Screen && a.Control == b.Control && a.Index == b.Index;
}

}  // namespace

void Windows::Send(const Event& event) {
  // While an event is handled (a message box is up, a station is being saved) there is no other.
  if (sending_ || kelp_.Ended) return;
  if (event.Kind == EventKind::Edit) TakeFocus(event.Place);
  SendFocus();
  {
    const QScopedValueRollback sending(sending_, true);
    post_(event);
  }
  ShowChanges();
}

// The focus moves in the middle of Qt's own work (a mouse press, a window's activation); the program
// hears of it afterwards, but before anything else that the operator does.
void Windows::TakeFocus(const FocusPlace& place) {
  if (sending_) return;
  focusToSend_.reset();
  if (SamePlace(place, kelp_.Focus)) return;
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

// Puts the focus where the program moved it.
void Windows::ShowFocus() {
  const FocusPlace& now = kelp_.Focus;
  if (SamePlace(now, shownFocus_)) return;
  shownFocus_ = now;
  QWidget* widget = WidgetOf(now);
  if (widget != nullptr && widget->window()->focusWidget() != widget) GiveFocus(widget);
}

// A box that is reached in this way is ready to be typed over.
void Windows::GiveFocus(QWidget* widget) {
  widget->setFocus(Qt::OtherFocusReason);
  if (auto* edit = qobject_cast<QLineEdit*>(widget)) edit->selectAll();
  if (auto* combo = qobject_cast<QComboBox*>(widget)) combo->lineEdit()->selectAll();
}

bool Windows::eventFilter(QObject* object, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type != QEvent::KeyPress && type != QEvent::ShortcutOverride && type != QEvent::FocusIn &&
      type != QEvent::Wheel)
    return false;
  if (!object->isWidgetType()) return false;
  auto* widget = static_cast<QWidget*>(object);
  ScreenWindow* window = WindowAround(widget);
  if (window == nullptr) return false;
  if (window == resting_ && (type == QEvent::KeyPress || type == QEvent::ShortcutOverride)) {
    if (!rest_.hasExpired()) {
      event->accept();
      return true;
    }
    resting_ = nullptr;
  }
  if (type == QEvent::FocusIn) {
    if (const FocusPlace* place = window->Controls.PlaceOf(widget)) TakeFocus(*place);
    return false;
  }
  // Scrolling past the operator's initials must not change them.
  if (type == QEvent::Wheel) return qobject_cast<QComboBox*>(widget) != nullptr;
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (type == QEvent::ShortcutOverride) {
    if (IsProgramKey(key)) event->accept();
    return IsProgramKey(key);
  }
  return TakeKey(key, *widget, *window);
}

bool Windows::TakeKey(const QKeyEvent& key, QWidget& widget, const ScreenWindow& window) {
  // A key that a widget leaves is offered to its parents too; the program has had its say by then.
  const QWidget* focus = window.focusWidget();
  if (focus != nullptr && focus != &widget) return false;
  if (key.key() == Qt::Key_P && key.modifiers() == Qt::ControlModifier && window.Screen() == "frmAcquire") {
    if (!key.isAutoRepeat()) ProfileWanted();
    return true;
  }
  const FocusPlace* place = window.Controls.PlaceOf(&widget);
  const auto meaning = EventOfKey(key, widget, window.Screen(), place);
  if (!meaning) return false;
  // A key held down is one key press: a second save must be meant.
  const bool typing = meaning->Kind == EventKind::Key && meaning->Key < 256 && meaning->Key != kKeyEnter &&
                      dynamic_cast<GridView*>(&widget) != nullptr;
  if (key.isAutoRepeat() && !typing) return true;
  // The key is meant for the widget that has it, whatever the window system told of the focus so far.
  if (place != nullptr) TakeFocus(*place);
  Send(*meaning);
  return true;
}

}  // namespace kelp
