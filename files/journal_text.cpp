#include "files/journal_text.hpp"

#include <charconv>
#include <cstdint>

#include "core/text.hpp"

namespace kelp {

namespace {

constexpr std::size_t kCheckDigits = 8;

std::string Check(std::string_view text) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const char c : text) {
    crc ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
  }
  char digits[kCheckDigits];
  const auto result = std::to_chars(digits, digits + sizeof digits, ~crc, 16);
  return Padded({digits, static_cast<std::size_t>(result.ptr - digits)}, kCheckDigits, "L", "0");
}

// Takes the word before the next blank, and the blank, off the front of a text.
std::string_view TakeWord(std::string_view& text) {
  const auto blank = text.find(' ');
  const std::string_view word = text.substr(0, blank);
  text.remove_prefix(blank == std::string_view::npos ? text.size() : blank + 1);
  return word;
}

bool TakeNumber(std::string_view& text, int& number) {
  const std::string_view word = TakeWord(text);
  const auto result = std::from_chars(word.data(), word.data() + word.size(), number);
  return result.ec == std::errc() && result.ptr == word.data() + word.size();
}

}  // namespace

std::string JournalText(const JournalLine& line) {
  const std::string text = line.Kind + " " + std::to_string(line.A) + " " + std::to_string(line.B) + " " +
                           OneField(line.Value, false);
  return text + "*" + Check(text) + "\r\n";
}

std::optional<JournalLine> ParseJournalLine(std::string_view text) {
  const auto star = text.rfind('*');
  if (star == std::string_view::npos || text.substr(star + 1) != Check(text.substr(0, star))) return {};
  text = text.substr(0, star);
  JournalLine line;
  line.Kind = TakeWord(text);
  if (!TakeNumber(text, line.A) || !TakeNumber(text, line.B)) return {};
  line.Value = text;
  return line;
}

std::vector<JournalLine> LastSection(std::string_view content) {
  std::vector<JournalLine> section;
  bool damaged = true;
  for (const std::string& text : Lines(content)) {
    std::optional<JournalLine> line = ParseJournalLine(text);
    if (line && line->Kind == "station") {
      section.clear();
      damaged = false;
    }
    if (!line) damaged = true;
    if (!damaged) section.push_back(std::move(*line));
  }
  return section;
}

}  // namespace kelp
