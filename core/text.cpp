// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/text.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace kelp {

namespace {
char UpperChar(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char LowerChar(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
}  // namespace

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view Left(std::string_view text, std::size_t count) { return text.substr(0, count); }

std::string_view Right(std::string_view text, std::size_t count) {
  return count >= text.size() ? text : text.substr(text.size() - count);
}

std::string Upper(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), UpperChar);
  return upper;
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), LowerChar);
  return lower;
}

bool SameIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return UpperChar(x) == UpperChar(y); });
}

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}
bool StartsWith(std::string_view text, std::string_view start) { return text.starts_with(start); }
bool EndsWith(std::string_view text, std::string_view end) { return text.ends_with(end); }

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  if (from.empty()) return text;
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

std::string AsRead(const std::string& caption) { return Replaced(caption, "&", ""); }

std::vector<std::string> Words(std::string_view text) {
  std::vector<std::string> words;
  for (std::size_t at = 0; (at = text.find_first_not_of(' ', at)) != std::string_view::npos;) {
    const auto end = std::min(text.find(' ', at), text.size());
    words.emplace_back(text.substr(at, end - at));
    at = end;
  }
  return words;
}

std::vector<std::string> Lines(std::string_view content) {
  std::vector<std::string> lines;
  while (!content.empty()) {
    const auto end = std::min(content.find('\n'), content.size());
    std::string_view line = content.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
    content.remove_prefix(std::min(end + 1, content.size()));
  }
  return lines;
}

void PadStr(std::string& text, std::size_t width, std::string_view side, std::string_view fill) {
  const std::string upperSide = Upper(side);
  const std::string upperFill = Upper(fill);
  if (text.size() >= width || (upperFill != "0" && upperFill != "S")) return;
  const std::string padding(width - text.size(), upperFill == "0" ? '0' : ' ');
  if (upperSide == "L") text = padding + text;
  if (upperSide == "R") text += padding;
}

std::string Padded(std::string_view text, std::size_t width, std::string_view side, std::string_view fill) {
  std::string padded(text);
  PadStr(padded, width, side, fill);
  return padded;
}

std::string WithBackslash(std::string_view path) {
  std::string folder(path);
  if (!folder.ends_with('\\')) folder += '\\';
  return folder;
}

std::string OneField(std::string_view text, bool alsoCommas) {
  std::string field(text);
  for (char& c : field)
    if (c == '\r' || c == '\n' || (alsoCommas && c == ',')) c = ' ';
  return field;
}

std::string Counted(std::size_t count, std::string_view one) {
  return std::to_string(count) + " " + std::string(one) + (count == 1 ? "" : "s");
}

std::string MarkOf(const std::string& text) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  char mark[40];
  std::snprintf(mark, sizeof mark, "%zu-%016llx", text.size(), static_cast<unsigned long long>(hash));
  return mark;
}

}  // namespace kelp
