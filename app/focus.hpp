// SPDX-License-Identifier: GPL-3.0-or-later
// Where the keys go: the control with the focus, the order of Tab, and what leaving a control does.
#pragma once

#include <string_view>

#include "core/find_control.hpp"
#include "core/kelp.hpp"

namespace kelp {

/// True for the place `screen`.`control` without regard to letter case.
bool IsAt(const FocusPlace& place, std::string_view screen, std::string_view control);

/// The control with the focus on a screen: where it was put last, else where the screen begins.
FocusPlace FocusOn(const Kelp& kelp, std::string_view screen);

/// Puts the focus on a control; the control left gets its leave event.
void MoveFocus(Kelp& kelp, const FocusPlace& place);

/// Moves the focus to the screen's next control that can take it.
void TabOn(Kelp& kelp, std::string_view screen);

/// True for a control that takes characters: a text box, a combo box or the grid.
bool TakesText(const ControlRef& control);

/// The control at a place; a negative index is none.
ControlRef ControlAt(Kelp& kelp, const FocusPlace& place);

}  // namespace kelp
