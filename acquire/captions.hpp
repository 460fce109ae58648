// The caption of `Command1` is itself the sub-step of a run. This is what the reading side makes of
// it: the Save captions once enough reads are in, and the instruction text of each pass.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// A text holds the name of a copro; an empty name is held by nothing.
bool HoldsName(std::string_view text, std::string_view name);

/// Turns the button into the step's Save button once the minimum number of reads is reached.
void UpdateSaveCaption(Kelp& kelp);

/// Sets the instruction text by the caption. With Autoread on, an Ra above Rb + 0.1 that was not
/// accepted starts its count again.
void UpdateInstruction(Kelp& kelp);

}  // namespace kelp
