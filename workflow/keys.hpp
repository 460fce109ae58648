// SPDX-License-Identifier: GPL-3.0-or-later
// The function keys of the acquisition screen, and Enter and the space bar.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// F1 to F9 (`number` 1 to 9); F10 sets up the screen anew and belongs to the application.
void FunctionKey(Kelp& kelp, int number);

/// The space bar on the whole screen. True when it is used up: the button stood on "&Start" or
/// "S&tandby". Otherwise it goes on to the focused control.
bool SpaceKey(Kelp& kelp);

}  // namespace kelp
