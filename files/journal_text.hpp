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

/// The line that begins a section: whose values follow, and in which version of this format.
std::string SectionHead(const std::string& station);

/// Reads a line; nothing when its check sum or its form is wrong.
std::optional<JournalLine> ParseJournalLine(std::string_view text);

/// The lines of the last section of a station, head included, up to the first damaged one; empty when
/// there is none. A section in another version of the format counts as none.
std::vector<JournalLine> LastSection(std::string_view content, std::string_view station);

/// The journal without the sections of a station: stations of the same number on other cruises share the
/// file. What no head says whose it is goes too.
std::string WithoutStation(std::string_view content, std::string_view station);

}  // namespace kelp
