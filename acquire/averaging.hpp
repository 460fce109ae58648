// What each reading does: the display, the ring buffer of the last N reads, their mean and SD, the
// Mean boxes, and the offscale warning.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Gives the ring buffer N = `ReadsToAverage` slots, all 0.
void SizeReadBuffer(RunState& run);

/// Sets every slot of the ring buffer and the read counter and index to 0, so that the next item's
/// mean begins with its own first read.
void ClearRawReads(RunState& run);

/// True when the ring buffer has been filled: an average exists. A last slot of exactly 0 counts as
/// not yet filled.
bool AverageExists(const RunState& run);

/// Takes one reading through display, chart, counter, ring buffer, mean and SD, in that order.
/// Overflow when N x (N - 1) leaves 16 bits (N of 182 or more), Subscript when N is 0.
void TakeReading(Kelp& kelp, float reading);

/// Empties the statistics, Mean and Read boxes.
void ClearReadingDisplays(FrmAcquire& form);

}  // namespace kelp
