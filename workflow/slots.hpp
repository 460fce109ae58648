// SPDX-License-Identifier: GPL-3.0-or-later
// The place that the running step waits for, named by the caption of the Start button: where F5, F7
// and a click on a mean box put a value.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

struct ValueSlot {
  int Box = -1;            ///< index of `txtBlank`, or -1
  int Row = 0;             ///< grid row
  int Col = -1;            ///< its column; -1 when the slot is no grid cell
  bool Calculate = false;  ///< the row is calculated afterwards
};

ValueSlot KeySlot(const Kelp& kelp);      ///< F5 and F7 on the acquisition screen
ValueSlot ChooserSlot(const Kelp& kelp);  ///< F5 and F7 on the chooser
ValueSlot MeanSlot(const Kelp& kelp);     ///< a click on a mean box

/// Puts a value into a slot, and calculates the sample where the slot says so. A caption that waits for
/// nothing, or a value that is none, changes nothing, and the status bar says so.
void PutIntoSlot(Kelp& kelp, const ValueSlot& slot, const std::string& value, How way);

}  // namespace kelp
