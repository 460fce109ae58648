// The program's message boxes as modal windows.
#pragma once

#include <QMessageBox>
#include <QWidget>

#include "platform/platform.hpp"

namespace kelp {

/// Sets up a box with the message's title, text, icon and buttons. The first button is the default;
/// Esc and the window's frame mean the button that changes nothing: Cancel, else No, else OK.
void SetUpBox(QMessageBox& box, const Message& message);

/// The button of the box that stands for an answer, or null.
QAbstractButton* ButtonOf(const QMessageBox& box, Answer answer);

/// Shows the message over `parent` and returns the button pressed.
Answer ShowMessage(QWidget* parent, const Message& message);

}  // namespace kelp
