// SPDX-License-Identifier: GPL-3.0-or-later
// What the acquisition screen says beside the values of its controls: whether the reading is good enough
// to be saved, and where the next value goes. A front end shows it; it decides nothing.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

struct PanelState {
  std::string Criterion;  ///< the SD at or below which a value may be saved, as the SD is shown
  bool HasSd = false;     ///< an SD is shown
  bool SdMet = false;     ///< it belongs to a full average and meets the criterion
  int MinReads = 0;
  std::string Station;  ///< processing number and station text
  int Sample = 0;       ///< the current sample, 0 when the station has none
  int Samples = 0;
  int Row = 0;   ///< grid row of the current sample, 0 for none
  int Col = -1;  ///< its column that the next value goes to, -1 when the step is no sample
  int Box = -1;  ///< index of the `txtBlank` box that the next value goes to, -1 for none
};

PanelState PanelOf(const Kelp& kelp);

}  // namespace kelp
