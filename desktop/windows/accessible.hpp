// What a screen reader is told.
#pragma once

class QWidget;

namespace kelp {

/// Tells screen readers of the program's own widgets; to be called before the first window is made.
void MakeAccessible();

/// A screen reader is to speak of this widget now: a value was saved, an alarm came up, there is something new
/// to do.
void Announce(QWidget* widget);

}  // namespace kelp
