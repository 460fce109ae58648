// SPDX-License-Identifier: GPL-3.0-or-later
// The per-read log: the state of the reading, appended at a fixed interval to the station's read log
// and to the run's temporary copy.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Appends a record, of the time that is in `RunDate`, to `CsvFile` and `TmpFile`. Throws RunTimeError when a
/// file can't be written.
void AppendReadLog(Kelp& kelp);

/// Appends the line of a sample, and `mark` behind it, to one of these files. Throws FileError.
void AppendSampleLine(Kelp& kelp, const std::string& path, const std::string& line, const std::string& mark);

/// Puts the lines that the log still owes on the disk: a value was stored, or reading stops. A failure stands
/// in the status bar; what counts is in the record.
void FlushReadLog(Kelp& kelp);

}  // namespace kelp
