#include "files/journal_text.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "core/text.hpp"

namespace kelp {

namespace {

constexpr std::size_t kCheckDigits = 8;
constexpr const char* kHead = "station";
constexpr int kVersion = 1;

constexpr std::array<std::uint32_t, 256> kCrcOfByte = [] {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
    table[byte] = byte;
    for (int bit = 0; bit < 8; ++bit)
      table[byte] = (table[byte] >> 1) ^ ((table[byte] & 1) != 0 ? 0xEDB88320 : 0);
  }
  return table;
}();

std::string Check(std::string_view text) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (const char c : text) crc = (crc >> 8) ^ kCrcOfByte[(crc ^ static_cast<unsigned char>(c)) & 0xFF];
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

std::string_view WithoutLineEnd(std::string_view line) {
  if (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

bool TakeNumber(std::string_view& text, int& number) {
  const std::string_view word = TakeWord(text);
  const auto result = std::from_chars(word.data(), word.data() + word.size(), number);
  return result.ec == std::errc() && result.ptr == word.data() + word.size();
}

// A head and what follows it up to the next head, damage included.
struct Section {
  JournalLine Head;
  std::string_view Text;
  [[nodiscard]] bool IsOf(std::string_view station) const {
    return Head.A == kVersion && Head.Value == station;
  }
};

std::vector<Section> Sections(std::string_view content) {
  std::vector<Section> sections;
  std::size_t start = 0;
  for (std::size_t at = 0; at < content.size();) {
    const std::size_t end = std::min(content.find('\n', at), content.size() - 1) + 1;
    std::optional<JournalLine> line = ParseJournalLine(WithoutLineEnd(content.substr(at, end - at)));
    if (line && line->Kind == kHead) {
      sections.push_back({std::move(*line), {}});
      start = at;
    }
    if (!sections.empty()) sections.back().Text = content.substr(start, end - start);
    at = end;
  }
  return sections;
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

std::string SectionHead(const std::string& station) { return JournalText({kHead, kVersion, 0, station}); }

std::vector<JournalLine> LastSection(std::string_view content, std::string_view station) {
  std::vector<JournalLine> lines;
  for (const Section& section : Sections(content)) {
    if (!section.IsOf(station)) continue;
    lines.clear();
    for (const std::string& text : Lines(section.Text)) {
      std::optional<JournalLine> line = ParseJournalLine(text);
      if (!line) break;
      lines.push_back(std::move(*line));
    }
  }
  return lines;
}

std::string WithoutStation(std::string_view content, std::string_view station) {
  std::string others;
  for (const Section& section : Sections(content))
    if (!section.IsOf(station)) others += section.Text;
  return others;
}

}  // namespace kelp
