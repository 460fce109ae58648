// SPDX-License-Identifier: GPL-3.0-or-later
// The letter that presses a control together with Alt. The captions of the program name only some of them;
// the others get theirs on the screen alone, and no letter is given twice in a window.
#pragma once

#include <QString>

class QWidget;

namespace kelp {

class Binder;

/// Property of a widget: a text behind its tooltip, such as the function key that does the same.
inline constexpr const char* kKeyHint = "keyHint";

struct AccessKey {
  const char* Control;
  int Index;  ///< -1 for a control that is no array member
  char Letter;
};

/// Gives controls of a window their letters, or a key of another kind that is shown in the tooltip.
void SetAccessKeys(const Binder& controls, std::initializer_list<AccessKey> keys);
void SetKeyHint(QWidget* widget, const char* hint);

/// The caption of a widget never takes one of these letters: another control of the window has it.
void KeepAccessKeysFree(QWidget* widget, const QString& letters);

/// The caption of a widget with the mark of its letter.
QString WithAccessKey(const QWidget& widget, const QString& caption);

/// The letter that a caption marks, in upper case; null for none.
QChar AccessKeyOf(const QString& caption);

}  // namespace kelp
