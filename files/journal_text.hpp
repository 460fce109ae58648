// The lines of a journal: "KIND A B VALUE*CHECK", KIND and the numbers saying where a value belongs,
// CHECK the CRC-32 of all before the star, in eight hexadecimal digits.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelp {

struct JournalLine {
  std::string Kind;
  int A = 0;
  int B = 0;
  std::string Value;
};

/// A line with its check sum, CR LF included. Line breaks in the value become blanks.
std::string JournalText(const JournalLine& line);

/// Reads a line; nothing when its check sum or its form is wrong.
std::optional<JournalLine> ParseJournalLine(std::string_view text);

/// The lines of a journal's last section (each begins with a line of the kind "station"), up to the
/// first damaged one; empty when there is none.
std::vector<JournalLine> LastSection(std::string_view content);

}  // namespace kelp
