// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/machine/message_box.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

#include "desktop/windows/look.hpp"

namespace kelp {

namespace {

QMessageBox::StandardButtons ButtonsOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok: return QMessageBox::Ok;
    case Buttons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

QMessageBox::StandardButton EscapeOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok: return QMessageBox::Ok;
    case Buttons::YesNo: return QMessageBox::No;
    case Buttons::OkCancel:
    case Buttons::YesNoCancel: return QMessageBox::Cancel;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(Icon icon) {
  switch (icon) {
    case Icon::None: return QMessageBox::NoIcon;
    case Icon::Exclamation: return QMessageBox::Warning;
    case Icon::Critical: return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButton ButtonFor(Answer answer) {
  switch (answer) {
    case Answer::Ok: return QMessageBox::Ok;
    case Answer::Cancel: return QMessageBox::Cancel;
    case Answer::Yes: return QMessageBox::Yes;
    case Answer::No: return QMessageBox::No;
  }
  return QMessageBox::Ok;
}

Answer AnswerOf(int button) {
  switch (button) {
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    case QMessageBox::Cancel: return Answer::Cancel;
    default: return Answer::Ok;
  }
}

// True for a key that leads to a button: Tab, an arrow, or the button's letter.
bool LeadsToButton(const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down: return true;
    default: return key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z;
  }
}

}  // namespace

int BoxKeys::Rest = 700;

BoxKeys::BoxKeys(QMessageBox& box) : box_(box) {
  rest_.setRemainingTime(Rest);
  qApp->installEventFilter(this);
}

bool BoxKeys::eventFilter(QObject* object, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type != QEvent::KeyPress && type != QEvent::KeyRelease && type != QEvent::ShortcutOverride)
    return false;
  const auto* widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr || widget->window() != &box_) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  const bool space = key.key() == Qt::Key_Space;
  if (!rest_.hasExpired() || key.isAutoRepeat() || (space && !reached_)) {
    event->accept();
    return true;
  }
  if (type == QEvent::KeyPress) reached_ |= LeadsToButton(key);
  return false;
}

void SetUpBox(QMessageBox& box, const Message& message) {
  box.setWindowTitle(message.Title.empty() ? QStringLiteral("Kelp") : QString::fromStdString(message.Title));
  // Values from files stand in the texts: none of them is markup.
  box.setTextFormat(Qt::PlainText);
  box.setText(QString::fromStdString(message.Text));
  box.setIcon(IconOf(message.Icon));
  box.setStandardButtons(ButtonsOf(message.Buttons));
  const bool yes = message.Buttons == Buttons::YesNo || message.Buttons == Buttons::YesNoCancel;
  const bool no = yes && message.DefaultNo;
  box.setDefaultButton(no ? QMessageBox::No : yes ? QMessageBox::Yes : QMessageBox::Ok);
  box.setEscapeButton(EscapeOf(message.Buttons));
  for (QAbstractButton* button : box.buttons())
    button->setMinimumHeight(button->fontMetrics().height() * 2);  // for gloves
}

QAbstractButton* ButtonOf(const QMessageBox& box, Answer answer) { return box.button(ButtonFor(answer)); }

Answer ShowMessage(QWidget* parent, const Message& message) {
  ShowProgramIcon();
  QMessageBox box(parent);
  SetUpBox(box, message);
  const BoxKeys keys(box);
  return AnswerOf(box.exec());
}

}  // namespace kelp
