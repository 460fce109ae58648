// SPDX-License-Identifier: GPL-3.0-or-later
// The function keys of the acquisition screen.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// F1 to F12: those of the run, and F10 to F12, which belong to the screen.
void frmAcquire_KeyDown(Kelp& kelp, int number);

}  // namespace kelp
