// SPDX-License-Identifier: GPL-3.0-or-later
// Undo: takes back the last event that stored something.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Puts cells, boxes, counters and step back to what they were before the last event that stored something,
/// again and again up to the load of the station. When that event moved the run on, the item before is to be
/// read again: reading stops until the operator starts it.
void cmdUndo_Click(Kelp& kelp);

}  // namespace kelp
