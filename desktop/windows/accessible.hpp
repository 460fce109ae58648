// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader is told.
#pragma once

#include <QString>

class QAbstractScrollArea;
class QComboBox;
class QWidget;

namespace kelp {

/// Tells screen readers of the program's own widgets; to be called before the first window is made.
void MakeAccessible();

/// Names an editable combo box and the line in it.
void NameBox(QComboBox* box, const QString& name);
void NameScrollBars(QAbstractScrollArea* area);

/// A screen reader is to speak of this widget now: a value was saved, an alarm came up, there is something
/// new to do.
void Announce(QWidget* widget);

}  // namespace kelp
