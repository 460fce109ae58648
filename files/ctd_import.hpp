// SPDX-License-Identifier: GPL-3.0-or-later
// Takes station, cast type, cast date and bottle-trip time from the CTD's header and mark files, so
// that nobody has to type them. A file that does not exist is skipped without a word.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Reads the cast's ".hdr" file: station text, cast type, and the cast date into configuration line 24.
/// Throws Overflow for a key at the end of a line; the text names file and line.
void ImportCtdHeader(Kelp& kelp);

/// Reads the cast's ".mrk" file: the last mark plus one hour is the filtration date and time. Throws
/// "Type mismatch" for a mark without a date; the text names file and line.
void ImportCtdMark(Kelp& kelp);

}  // namespace kelp
