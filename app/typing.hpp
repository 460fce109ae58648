// SPDX-License-Identifier: GPL-3.0-or-later
// Keys and edits.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// A key on a screen, with the focus where it is.
void PressKey(Kelp& kelp, const std::string& screen, int key);

/// The operator's editing left `text` in a control.
void EditControl(Kelp& kelp, const FocusPlace& place, const std::string& text);

}  // namespace kelp
