// SPDX-License-Identifier: GPL-3.0-or-later
// Clicks, by control.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

void ClickControl(Kelp& kelp, const FocusPlace& place);
void DblClickControl(Kelp& kelp, const FocusPlace& place);

}  // namespace kelp
