// SPDX-License-Identifier: GPL-3.0-or-later
// The last N reads as a trace that fills its height: whether a reading has settled is seen there long
// before the strip chart, with its full scale, shows it.
#pragma once

#include <vector>

#include "core/kelp.hpp"

namespace kelp {

struct StabilityTrace {
  std::vector<float> Reads = {};  ///< oldest first; not all N before the ring buffer is full
  int Wanted = 0;                 ///< N
  bool Full = false;              ///< an average exists; without one Mean and Sd say nothing
  double Mean = 0;
  double Sd = 0;
  double Low = 0;  ///< the scale: what lies at the lower and the upper edge
  double High = 0;
};

/// The trace of the reads in the ring buffer. The scale holds all reads and the SD band, and is never
/// narrower than six times the SD criterion: the noise of a steady reading must not look like unrest.
StabilityTrace StabilityOf(const Kelp& kelp);

}  // namespace kelp
