// SPDX-License-Identifier: GPL-3.0-or-later
// The program's message boxes as modal windows.
#pragma once

#include <QDeadlineTimer>
#include <QMessageBox>
#include <QWidget>

#include "platform/platform.hpp"

namespace kelp {

/// Sets up a box with the message's title, text, icon and buttons. The first button is the default, or No
/// where the message says so; Esc and the window's frame mean the button that changes nothing: Cancel, else
/// No, else OK.
void SetUpBox(QMessageBox& box, const Message& message);

/// The button of the box that stands for an answer, or null.
QAbstractButton* ButtonOf(const QMessageBox& box, Answer answer);

/// Keeps keys from a box that were not meant for it. A box comes up while the analyst presses the space bar
/// for the next value: for its first moments it takes no key at all, a key held down never answers it, and
/// the space bar only when a button was reached on purpose.
class BoxKeys : public QObject {
 public:
  explicit BoxKeys(QMessageBox& box);
  static int Rest;  ///< milliseconds without keys

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QMessageBox& box_;
  QDeadlineTimer rest_;
  bool reached_ = false;
};

/// Shows the message over `parent` and returns the button pressed.
Answer ShowMessage(QWidget* parent, const Message& message);

}  // namespace kelp
