// SPDX-License-Identifier: GPL-3.0-or-later
// The per-read log: the state of the reading, appended at a fixed interval to the station's read log
// and to the run's temporary copy.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// One tick of the log timer: appends a record to `CsvFile` and `TmpFile`. When a file can't be
/// written the operator may fix that and try again, or go on without this record.
void AppendReadLog(Kelp& kelp);

/// Appends the line of a sample just finished or skipped to `CsvFile`, and with `mark` behind it to
/// `TmpFile`. A file that can't be written is named in a message; the reading stays in the table.
void AppendSampleLine(Kelp& kelp, const std::string& line, const std::string& mark);

/// Puts the lines that the log still owes on the disk: a value was stored, or reading stops. A failure stands
/// in the status bar; what counts is in the record.
void FlushReadLog(Kelp& kelp);

}  // namespace kelp
