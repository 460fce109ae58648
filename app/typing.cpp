// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/typing.hpp"

#include "app/door.hpp"
#include "app/focus.hpp"
#include "app/handlers.hpp"
#include "core/text.hpp"
#include "workflow/keys.hpp"
#include "workflow/run_controls.hpp"

namespace kelp {

namespace {

void PressEnter(Kelp& kelp, const FocusPlace& focus) {
  if (RunHandler(kelp, Doing::Enter, focus)) return;
  if (std::holds_alternative<Button*>(ControlAt(kelp, focus)))
    Post(kelp, {.Kind = EventKind::Click, .Place = focus});
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
    RunHandler(kelp, Doing::FunctionKey, {screen, "", key - kKeyF1 + 1});
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
  if (RunHandler(kelp, Doing::Edit, place, text)) return;
  if (const auto* box = std::get_if<TextBox*>(&control)) (*box)->Text = text;
  if (const auto* combo = std::get_if<ComboBox*>(&control)) (*combo)->Text = text;
  RunHandler(kelp, Doing::Edited, place, text);
}

}  // namespace kelp
