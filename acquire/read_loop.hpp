// SPDX-License-Identifier: GPL-3.0-or-later
// The read loop as a state machine: a front end runs it pass by pass, whenever bytes arrive and
// once a second.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Starts the loop, or restarts a running one: counters, flags and SD go back, the text that came in
/// so far stays when the loop was running, so that half a line never turns into a reading.
void StartReadLoop(Kelp& kelp);

/// One pass: takes waiting text, a reading if it is complete, and sets the instruction text. Returns
/// true when the save routine is to be tried (Autoread is on); false too when the loop has ended.
bool ReadPass(Kelp& kelp);

/// Opens the serial port with the settings of the configuration, closing it first if it is open.
/// False after the message that the port is not talking.
bool OpenSerialPort(Kelp& kelp);

}  // namespace kelp
