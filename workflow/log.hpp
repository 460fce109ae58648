// SPDX-License-Identifier: GPL-3.0-or-later
// The read log as the run keeps it: what can't be written is told, and the run goes on.
#pragma once

#include <string>

#include "core/kelp.hpp"

namespace kelp {

/// One tick of the log timer: appends a record to the read log. When a file can't be written the operator may
/// fix that and try again, or go on without this record.
void LogReading(Kelp& kelp);

/// Appends the line of a sample just finished or skipped to the read log, and with `mark` behind it to its
/// temporary copy. A file that can't be written is named in a message; the reading stays in the table.
void LogSample(Kelp& kelp, const std::string& line, const std::string& mark);

}  // namespace kelp
