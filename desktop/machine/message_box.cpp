#include "desktop/machine/message_box.hpp"

#include <QAbstractButton>

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

}  // namespace

void SetUpBox(QMessageBox& box, const Message& message) {
  box.setWindowTitle(message.Title.empty() ? QStringLiteral("Kelp") : QString::fromStdString(message.Title));
  // Values from files stand in the texts: none of them is markup.
  box.setTextFormat(Qt::PlainText);
  box.setText(QString::fromStdString(message.Text));
  box.setIcon(IconOf(message.Icon));
  box.setStandardButtons(ButtonsOf(message.Buttons));
  const bool yes = message.Buttons == Buttons::YesNo || message.Buttons == Buttons::YesNoCancel;
  box.setDefaultButton(yes ? QMessageBox::Yes : QMessageBox::Ok);
  box.setEscapeButton(EscapeOf(message.Buttons));
}

QAbstractButton* ButtonOf(const QMessageBox& box, Answer answer) { return box.button(ButtonFor(answer)); }

Answer ShowMessage(QWidget* parent, const Message& message) {
  QMessageBox box(parent);
  SetUpBox(box, message);
  return AnswerOf(box.exec());
}

}  // namespace kelp
