// SPDX-License-Identifier: GPL-3.0-or-later
// The caption of `Command1` is itself the sub-step of a run. This is what the reading side makes of
// it: the Save captions once enough reads are in, and the instruction text of each pass.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Turns the button into the step's Save button once the minimum number of reads of a loaded item is reached.
void UpdateSaveCaption(Kelp& kelp);

/// Sets the instruction text by the caption. With Autoread on, an Ra above Rb + 0.1 that was not
/// accepted starts its count again.
void UpdateInstruction(Kelp& kelp);

/// The screen offers the space bar for an Ra above Rb.
bool WaitsForRa(const Kelp& kelp);

}  // namespace kelp
