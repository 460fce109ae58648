// What an accepted value does, by step: it is stored, and the button, the instruction and the step
// move on. By hand and by Autoread the same, but for the words of the instruction.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

enum class SavedBy { Hand, Autoread };

void AcceptBlank(Kelp& kelp, SavedBy by);
void AcceptLowStandard(Kelp& kelp);
void AcceptHighStandard(Kelp& kelp);
void AcceptFirstCopro(Kelp& kelp);
void AcceptSecondCopro(Kelp& kelp);

/// `code` is 3, or 7 for an Rb below the blank that the operator accepted.
void AcceptRb(Kelp& kelp, SavedBy by, int code);

/// Stores the Ra, calculates the sample and moves on. An error of the calculation is thrown only after
/// the run has moved on: the value is stored, and the next tube waits.
void AcceptRa(Kelp& kelp, SavedBy by);

}  // namespace kelp
