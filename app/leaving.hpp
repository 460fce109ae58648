// SPDX-License-Identifier: GPL-3.0-or-later
// Leaving a window: by its frame, or with Esc.
#pragma once

#include <string_view>

#include "core/kelp.hpp"

namespace kelp {

/// A window is closed by its frame: the same question, or the same way out, as its own button.
void CloseWindow(Kelp& kelp, std::string_view screen);

/// Esc: a dialog goes away, nothing is stored, changed or ended, and nothing is asked. The screen that it was
/// opened from comes up. Does nothing on the main window and the acquisition screen.
void LeaveDialog(Kelp& kelp, std::string_view screen);

}  // namespace kelp
