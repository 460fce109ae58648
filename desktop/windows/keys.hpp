// SPDX-License-Identifier: GPL-3.0-or-later
// Which keys the program takes before the widgets do, and what they mean for the control with the focus.
#pragma once

#include <optional>

#include "app/door.hpp"

class QKeyEvent;
class QWidget;

namespace kelp {

/// The event that a key means for the program when `focus` shows the control at `place`; nothing when
/// the key is the widget's own. A null `place` is a widget beside the screen's controls. Function keys
/// and the space bar reach the program before menus, buttons and tables take them; in a text box and
/// the grid a space is a character.
std::optional<Event> EventOfKey(const QKeyEvent& key, const QWidget& focus, const std::string& screen,
                                const FocusPlace* place);

/// True for a key that no shortcut may take.
bool IsProgramKey(const QKeyEvent& key);

}  // namespace kelp
