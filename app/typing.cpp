// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/typing.hpp"

#include "app/acquire_load.hpp"
#include "app/clicks.hpp"
#include "app/door.hpp"
#include "app/focus.hpp"
#include "app/panel.hpp"
#include "core/text.hpp"
#include "record/record.hpp"
#include "workflow/keys.hpp"
#include "workflow/open_station.hpp"
#include "workflow/run_controls.hpp"
#include "workflow/whats_next.hpp"

namespace kelp {

namespace {

void ResetProgram(Kelp& kelp) {
  if (!AskRisky(kelp, "This will reset the program! Y/N?", "Reset Program?") || !MayLeave(kelp)) return;
  frmAcquire_Load(kelp);
}

// Grid and Autoread are used at every sample: each has a key of its own.
void GoToGrid(Kelp& kelp) {
  Grid& grid = kelp.frmAcquire.datalog;
  const PanelState panel = PanelOf(kelp);
  if (panel.Row > 0 && !IsAt(kelp.Focus, "frmAcquire", "datalog")) {
    grid.Row = panel.Row;
    grid.Col = panel.Col < 0 ? kColRb : panel.Col;
  }
  MoveFocus(kelp, {"frmAcquire", "datalog"});
}

void ToggleAutoread(Kelp& kelp) {
  bool& on = kelp.frmAcquire.Check1.Value;
  on = !on;
  SetStatus(kelp, on ? "Autoread is on: values are saved by themselves." : "Autoread is off.");
}

void PressAcquireKey(Kelp& kelp, int number) {
  switch (number) {
    case 10: ResetProgram(kelp); break;
    case 11: GoToGrid(kelp); break;
    case 12: ToggleAutoread(kelp); break;
    default: FunctionKey(kelp, number); break;
  }
}

void PressFunctionKey(Kelp& kelp, const std::string& screen, int number) {
  if (SameIgnoringCase(screen, "frmAcquire"))
    PressAcquireKey(kelp, number);
  else if (SameIgnoringCase(screen, "frmWhatsNext"))
    frmWhatsNext_KeyDown(kelp, number);
}

// Enter leads to the next box of a form that is filled in; elsewhere to the button that goes on.
void PressEnter(Kelp& kelp, const FocusPlace& focus) {
  const bool inBox = IsAt(focus, "frmAcquire", "txtStaInfo") || IsAt(focus, "frmCreateBase", "Text1") ||
                     (IsAt(focus, "frmAcquire", "txtBlank") && focus.Index <= 3);
  if (inBox)
    TabOn(kelp, focus.Screen);
  else if (SameIgnoringCase(focus.Screen, "frmAcquire"))
    MoveFocus(kelp, {"frmAcquire", "Command1"});
  else if (IsAt(focus, "dlgRunRem", "Text1"))
    Post(kelp, {.Kind = EventKind::Click, .Place = {"dlgRunRem", "OKButton"}});
  else if (std::holds_alternative<Button*>(ControlAt(kelp, focus)))
    Post(kelp, {.Kind = EventKind::Click, .Place = focus});
  else if (SameIgnoringCase(focus.Screen, "frmLogin"))
    Post(kelp, {.Kind = EventKind::Click, .Place = {"frmLogin", "cmdOK"}});
  else if (SameIgnoringCase(focus.Screen, "frmWhatsNext"))
    Post(kelp, {.Kind = EventKind::Click, .Place = {"frmWhatsNext", "NextButton"}});
}

std::string TypedText(std::string text, int key) {
  if (key >= 32)
    text += static_cast<char>(key);
  else if (key == kKeyBackspace && !text.empty())
    text.pop_back();
  return text;
}

void TypeInto(Kelp& kelp, const FocusPlace& focus, int key) {
  const ControlRef control = ControlAt(kelp, focus);
  if (std::holds_alternative<Grid*>(control))
    datalog_KeyPress(kelp, key);
  else if (TakesText(control))
    EditControl(kelp, focus, TypedText(ValueOf(control), key));
  else if (key == kKeySpace)
    Post(kelp, {.Kind = EventKind::Click, .Place = focus});
}

bool InComment(const Kelp& kelp) { return kelp.frmAcquire.datalog.Col >= kColFiltCom; }

}  // namespace

void PressKey(Kelp& kelp, const std::string& screen, int key) {
  const FocusPlace focus = FocusOn(kelp, screen);
  kelp.Focus = focus;
  if (key >= kKeyF1 && key <= kKeyF12) {
    PressFunctionKey(kelp, screen, key - kKeyF1 + 1);
  } else if (key == kKeyTab) {
    TabOn(kelp, screen);
  } else if (key == kKeyEnter) {
    PressEnter(kelp, focus);
  } else {
    // In a box or a comment a space is an ordinary character; in a cell with a number it is no part of the
    // number and does what it does on the button.
    const bool onAcquire = key == kKeySpace && SameIgnoringCase(screen, "frmAcquire");
    const bool inCell = onAcquire && IsAt(focus, "frmAcquire", "datalog") && !InComment(kelp);
    const bool start = inCell || (onAcquire && !TakesText(ControlAt(kelp, focus)));
    if (start && SpaceKey(kelp)) return;
    TypeInto(kelp, inCell ? FocusPlace{"frmAcquire", "Command1"} : focus, key);
  }
}

void EditControl(Kelp& kelp, const FocusPlace& place, const std::string& text) {
  const ControlRef control = ControlAt(kelp, place);
  if (std::holds_alternative<Grid*>(control)) {
    datalog_Change(kelp, text);
    return;
  }
  if (ValueOf(control) == text) return;
  if (const auto* box = std::get_if<TextBox*>(&control); box != nullptr && (*box)->Locked) {
    SetStatus(kelp, "This value is shown for reading only.");
    return;
  }
  if (IsAt(place, "frmAcquire", "Text4") || IsAt(place, "frmAcquire", "StatusBar1")) {
    SetStatus(kelp, "This box holds the program's own words: nothing can be typed there.");
    return;
  }
  if (IsAt(place, "frmAcquire", "txtBlank")) {
    txtBlank_Change(kelp, place.Index, text);
    return;
  }
  if (IsAt(place, "frmAcquire", "txtStaInfo")) {
    txtStaInfo_Change(kelp, place.Index, text);
    return;
  }
  if (const auto* box = std::get_if<TextBox*>(&control)) (*box)->Text = text;
  if (const auto* combo = std::get_if<ComboBox*>(&control)) (*combo)->Text = text;
  if (IsAt(place, "frmEditCFG", "Text1") && place.Index == FrmEditCFG::kFirstBox)
    kelp.frmEditCFG.CruiseEdited = true;
  if (IsAt(place, "frmCreateBase", "Text1")) CheckCreateBase(kelp);
  if (IsAt(place, "frmMain", "Text1") && place.Index == 4) kelp.frmMain.LastTube = text;
}

}  // namespace kelp
