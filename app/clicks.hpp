// SPDX-License-Identifier: GPL-3.0-or-later
// A click: where the focus goes, and then what the table of handlers says.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// A label, a box or the grid without a handler takes the focus at most. Throws RunTimeError for any other
/// control that no handler knows.
void ClickControl(Kelp& kelp, const FocusPlace& place);

}  // namespace kelp
