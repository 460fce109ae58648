// SPDX-License-Identifier: GPL-3.0-or-later
// What each reading does: the display, the ring buffer of the last N reads, their mean and SD, the
// Mean boxes, and the offscale warning.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Gives the ring buffer N = `ReadsToAverage` slots, all 0.
void SizeReadBuffer(RunState& run);

/// True when the ring buffer has been filled since it was cleared: an average exists. A last slot of exactly
/// 0 counts as not yet filled, unless all reads are 0, as those of a zeroed instrument on acetone are.
bool AverageExists(const RunState& run);

/// Takes one reading through display, chart, counter, ring buffer, mean and SD, in that order.
/// Throws, once a step, what configuration line 13 makes impossible: Overflow when N x (N - 1) leaves 16 bits
/// (N of 182 or more), Division by zero when N is 1, Subscript when N is 0. There is no SD then.
void TakeReading(Kelp& kelp, float reading);

/// Empties the statistics, Mean and Read boxes.
void ClearReadingDisplays(FrmAcquire& form);

}  // namespace kelp
