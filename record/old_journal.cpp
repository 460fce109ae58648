// SPDX-License-Identifier: GPL-3.0-or-later
#include "record/old_journal.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <map>
#include <optional>

#include "core/text.hpp"

namespace kelp {

namespace {

constexpr std::size_t kCheckDigits = 8;
constexpr std::string_view kHead = "station 1 0 ";

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

// "KIND A B VALUE" of a line whose check sum is right.
std::optional<std::string_view> Checked(std::string_view line) {
  const auto star = line.rfind('*');
  if (star == std::string_view::npos || line.substr(star + 1) != Check(line.substr(0, star))) return {};
  return line.substr(0, star);
}

std::string_view TakeWord(std::string_view& text) {
  const auto blank = text.find(' ');
  const std::string_view word = text.substr(0, blank);
  text.remove_prefix(blank == std::string_view::npos ? text.size() : blank + 1);
  return word;
}

// "grid 3 4 2.1234" is the record's place datalog(3,4).
std::pair<std::string, std::string> PlaceAndValue(std::string_view line) {
  const std::string kind(TakeWord(line));
  const std::string a(TakeWord(line));
  const std::string b(TakeWord(line));
  std::string place = kind;
  if (kind == "grid" || kind == "table")
    place = (kind == "grid" ? "datalog(" : "SampTbl(") + a + "," + b + ")";
  else if (kind == "txtBlank" || kind == "txtStaInfo")
    place = kind + "(" + a + ")";
  else if (kind == "Option1")
    place = "Option1.Caption(" + a + ")";
  return {place, std::string(line)};
}

struct Section {
  OldStation Station;
  bool Whole = false;    ///< holds all values: its last one is there
  bool Damaged = false;  ///< what follows can't be told from damage
};

}  // namespace

std::string OldJournalLine(const std::string& text) { return text + "*" + Check(text) + "\r\n"; }

std::vector<OldStation> ReadOldJournal(std::string_view content) {
  std::vector<Section> sections;
  for (const std::string& text : Lines(content)) {
    const auto line = Checked(text);
    if (line && line->starts_with(kHead)) {
      sections.push_back({{std::string(line->substr(kHead.size()))}});
    } else if (line && line->starts_with("station ")) {
      sections.push_back({.Damaged = true});
    } else if (!sections.empty() && !sections.back().Damaged) {
      Section& section = sections.back();
      section.Damaged = !line;
      if (!line) continue;
      section.Station.Values.push_back(PlaceAndValue(*line));
      // A section begins with all values, the current sample as the last of them.
      section.Whole = section.Whole || section.Station.Values.back().first == "SampNum";
    }
  }
  // The newest one that is whole: a write that was cut off must not hide the complete one before it.
  std::map<std::string, const Section*> newest;
  for (const Section& section : sections) {
    if (section.Station.Values.empty()) continue;
    const Section*& best = newest[section.Station.BaseFile];
    if (best == nullptr || section.Whole || !best->Whole) best = &section;
  }
  std::vector<OldStation> stations;
  stations.reserve(newest.size());
  for (const auto& [name, section] : newest) stations.push_back(section->Station);
  return stations;
}

}  // namespace kelp
