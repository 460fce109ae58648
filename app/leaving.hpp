// SPDX-License-Identifier: GPL-3.0-or-later
// The ways out of a window: by its frame, or with Esc, which stores, changes and ends nothing, and asks
// nothing. The screen that a dialog was opened from comes up.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Back to the main window: no station is open yet, "Run Samples" begins anew.
void LeaveLogin(Kelp& kelp);
void LeaveCreateBase(Kelp& kelp);
/// The run stands where it stood: the button opens the chooser again.
void LeaveChooser(Kelp& kelp);
void CloseChangeStep(Kelp& kelp);
void CloseRemarks(Kelp& kelp);
void CloseRecalc(Kelp& kelp);

}  // namespace kelp
