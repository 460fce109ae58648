// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/clicks.hpp"

#include "app/focus.hpp"
#include "app/handlers.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {

// The space bar is to mean Start again after a click with the mouse, not the control clicked. Only a
// click into a text box or the grid takes the focus there.
void FocusAfterClick(Kelp& kelp, const FocusPlace& place) {
  if (TakesText(ControlAt(kelp, place))) {
    MoveFocus(kelp, place);
  } else if (SameIgnoringCase(place.Screen, "frmAcquire")) {
    const FocusPlace now = FocusOn(kelp, "frmAcquire");
    if (SameIgnoringCase(place.Control, "Command1") || TakesText(ControlAt(kelp, now)))
      MoveFocus(kelp, {"frmAcquire", "Command1"});
  } else if (!TakesText(ControlAt(kelp, kelp.Focus)) || SameIgnoringCase(kelp.Focus.Screen, place.Screen)) {
    MoveFocus(kelp, place);
  }
}

bool DoesNothing(const ControlRef& control) {
  return std::holds_alternative<Label*>(control) || TakesText(control);
}

}  // namespace

void ClickControl(Kelp& kelp, const FocusPlace& place) {
  if (HandlerOf(Doing::Click, place) == nullptr && !DoesNothing(ControlAt(kelp, place)))
    throw RunTimeError(ErrorKind::InvalidCall, "nothing is done by a click on " + place.Screen + "." +
                                                   place.Control + "; this is a fault of the program");
  FocusAfterClick(kelp, place);
  RunHandler(kelp, Doing::Click, place);
}

}  // namespace kelp
