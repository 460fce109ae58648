// SPDX-License-Identifier: GPL-3.0-or-later
// Text helpers with the meaning that the fixed-width files and the captions need: positions count
// characters (bytes), "trimmed" means blanks only, comparison ignores letter case only where said.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelp {

std::string_view Trim(std::string_view text);
std::string_view Left(std::string_view text, std::size_t count);
std::string_view Right(std::string_view text, std::size_t count);
std::string Upper(std::string_view text);
std::string Lower(std::string_view text);
bool SameIgnoringCase(std::string_view a, std::string_view b);
bool Contains(std::string_view text, std::string_view part);
bool StartsWith(std::string_view text, std::string_view start);
bool EndsWith(std::string_view text, std::string_view end);
std::string Replaced(std::string text, std::string_view from, std::string_view to);

/// A caption as it is read: without the mark of its access key.
std::string AsRead(const std::string& caption);

/// The words of a text, split at runs of blanks.
std::vector<std::string> Words(std::string_view text);

/// The lines of a file: CR LF or LF ends a line, a last line without an end counts.
std::vector<std::string> Lines(std::string_view content);

/// Pads `text` in place to `width`: `side` "L" or "R" (upper-cased before the test), `fill` "0" for
/// zeros or "S" for blanks. A text at or above the width, or any other side or fill, stays as it is.
void PadStr(std::string& text, std::size_t width, std::string_view side, std::string_view fill);

/// PadStr as a value.
std::string Padded(std::string_view text, std::size_t width, std::string_view side, std::string_view fill);

/// `path` with a backslash behind it when it has none.
std::string WithBackslash(std::string_view path);

/// A value of a comma-separated or one-line file: commas (where `alsoCommas`) and line breaks become blanks.
std::string OneField(std::string_view text, bool alsoCommas);

/// "1 file", "2 files".
std::string Counted(std::size_t count, std::string_view one);

/// A mark of a text by which a changed one is told.
std::string MarkOf(const std::string& text);

}  // namespace kelp
