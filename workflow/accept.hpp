// SPDX-License-Identifier: GPL-3.0-or-later
// What an accepted value does, by step: it is stored, and the button, the instruction and the step
// move on. By hand and by Autoread the same, but for the words of the instruction.
#pragma once

#include "acquire/save_check.hpp"
#include "core/kelp.hpp"

namespace kelp {

void AcceptBlank(Kelp& kelp, SavedBy by);
void AcceptLowStandard(Kelp& kelp, SavedBy by);
void AcceptHighStandard(Kelp& kelp, SavedBy by);
void AcceptFirstCopro(Kelp& kelp, SavedBy by);
void AcceptSecondCopro(Kelp& kelp, SavedBy by);

/// `code` is 3, or 7 for an Rb below the blank that the operator accepted. A sample that has an Rb keeps it
/// unless the operator went back to the sample or says Yes.
void AcceptRb(Kelp& kelp, SavedBy by, int code);

/// Stores the Ra, calculates the sample and moves on; an Ra that is there already as with AcceptRb. An error
/// of the calculation is thrown only after the run has moved on: the value is stored, and the next tube
/// waits.
void AcceptRa(Kelp& kelp, SavedBy by);

}  // namespace kelp
