// SPDX-License-Identifier: GPL-3.0-or-later
// The configuration editor.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

void frmEditCFG_Load(Kelp& kelp);
/// The cruise box was left after an edit: offers to change the cruise in all other boxes too.
void frmEditCFG_CruiseLostFocus(Kelp& kelp);
/// Back to the screen that the editor was opened from; what was not updated is dropped.
void LeaveEditor(Kelp& kelp);
void frmEditCFG_Command1_Click(Kelp& kelp, int index);

}  // namespace kelp
