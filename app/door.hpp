// SPDX-License-Identifier: GPL-3.0-or-later
// The one door for events. A front end turns what the operator did into an event and hands it in
// here; the door runs the handler, reports a run-time error in a message box, and the run goes on.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

enum class EventKind {
  Click,     ///< a button, an option button (it is selected first), a check box (toggled first)
  DblClick,  ///< an option button of the chooser, or the grid's current cell
  Key,       ///< `Key` was pressed on the screen `Place.Screen`, with the focus where it is
  Edit,      ///< the operator's editing left `Text` in a text box, combo box or the current grid cell
  Focus,     ///< the focus goes to `Place`; the control left gets its leave event
  Paste,     ///< `Text` is a block of cells, tabs and line breaks between them, for a grid from `Row`, `Col`
  Escape,    ///< the screen `Place.Screen` is left without effect, where it is a dialog
  SelectCell,  ///< `Row`, `Col` of a grid becomes the current cell
  Close,       ///< the window of `Place.Screen` is to be closed by its frame
};

/// Keys: a character stands for itself (1 to 255), function keys are kKeyF1 to kKeyF12.
enum Key { kKeyBackspace = 8, kKeyTab = 9, kKeyEnter = 13, kKeySpace = 32, kKeyF1 = 1001, kKeyF12 = 1012 };

struct Event {
  EventKind Kind = EventKind::Click;
  FocusPlace Place = {};
  std::string Text = {};
  int Key = 0;
  int Row = 0;
  int Col = 0;
};

/// Starts the program: the main window loads and is shown.
void Start(Kelp& kelp);

/// Runs the handler of an event. An event for a control that is not there, not enabled or on a hidden
/// screen does nothing and returns false.
bool Post(Kelp& kelp, const Event& event);

/// True while the read loop wants passes: it runs and the program is not paused.
bool WantsPasses(const Kelp& kelp);

/// One pass of the read loop, and the automatic save when Autoread is on. Call it whenever bytes
/// arrive and once a second while WantsPasses: without bytes a pass only looks after the line.
void Pass(Kelp& kelp);

/// True while the log timer runs; its interval is `kelp.Timer1.Interval` in milliseconds.
bool WantsTicks(const Kelp& kelp);

/// One tick of the log timer.
void Tick(Kelp& kelp);

/// True while a station is open or something waits for the record: then call Care once a minute, also when
/// nothing else happens. Other machines see by it that the station is in use.
bool WantsCare(const Kelp& kelp);
void Care(Kelp& kelp);

}  // namespace kelp
