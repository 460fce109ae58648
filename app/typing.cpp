#include "app/typing.hpp"

#include "app/acquire_load.hpp"
#include "app/clicks.hpp"
#include "app/door.hpp"
#include "app/focus.hpp"
#include "core/text.hpp"
#include "record/record.hpp"
#include "workflow/keys.hpp"
#include "workflow/run_controls.hpp"
#include "workflow/whats_next.hpp"

namespace kelp {

namespace {

void ResetProgram(Kelp& kelp) {
  if (!AskYes(kelp, "This will reset the program! Y/N?", "Reset Program?") || !MayLeave(kelp)) return;
  kelp.frmAcquire.Command1.Caption = "&Start";
  kelp.run.StepName = "BLANK";
  ClearTable(kelp.run);
  kelp.run.ReadFlag = false;
  frmAcquire_Load(kelp);
}

void PressFunctionKey(Kelp& kelp, const std::string& screen, int number) {
  if (SameIgnoringCase(screen, "frmAcquire"))
    number == 10 ? ResetProgram(kelp) : FunctionKey(kelp, number);
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
    // In a box or the grid a space is an ordinary character.
    const bool start =
        key == kKeySpace && SameIgnoringCase(screen, "frmAcquire") && !TakesText(ControlAt(kelp, focus));
    if (!start || !SpaceKey(kelp)) TypeInto(kelp, focus, key);
  }
}

void EditControl(Kelp& kelp, const FocusPlace& place, const std::string& text) {
  const ControlRef control = ControlAt(kelp, place);
  if (const auto* grid = std::get_if<Grid*>(&control)) {
    if ((*grid)->Row >= 1) (*grid)->Text((*grid)->Row, (*grid)->Col) = text;
    return;
  }
  if (ValueOf(control) == text) return;
  if (const auto* box = std::get_if<TextBox*>(&control)) (*box)->Text = text;
  if (const auto* combo = std::get_if<ComboBox*>(&control)) (*combo)->Text = text;
  if (IsAt(place, "frmAcquire", "txtStaInfo")) txtStaInfo_Change(kelp, place.Index);
  if (IsAt(place, "frmEditCFG", "Text1") && place.Index == FrmEditCFG::kFirstBox)
    kelp.frmEditCFG.CruiseEdited = true;
  if (IsAt(place, "frmMain", "Text1") && place.Index == 4) kelp.frmMain.LastTube = text;
}

}  // namespace kelp
