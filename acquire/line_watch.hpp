// SPDX-License-Identifier: GPL-3.0-or-later
// Watches the serial line while the read loop runs: an unplugged line is tried again once a second,
// and a line that stays silent is named in the status bar. An open port is no proof of a live cable.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// The loop starts: silence counts from now.
void StartLineWatch(Kelp& kelp);

/// A reading has come in: takes back what the status bar said about the line.
void NoteReading(Kelp& kelp);

/// A pass without a reading: opens a lost line again, or tells the age of the last reading after five
/// seconds without one.
void WatchLine(Kelp& kelp);

}  // namespace kelp
