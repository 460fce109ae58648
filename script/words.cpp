// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/words.hpp"

#include <charconv>
#include <cmath>

#include "core/text.hpp"

namespace kelp {

namespace {

constexpr double kMost = 1'000'000;

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// The byte of two hexadecimal digits, or -1.
int HexByte(std::string_view digits) {
  int value = 0;
  if (digits.size() < 2) return -1;
  const auto result = std::from_chars(digits.data(), digits.data() + 2, value, 16);
  return result.ptr == digits.data() + 2 && digits[0] != '-' ? value : -1;
}

std::string Quoted(std::string_view word) { return "\"" + std::string(word) + "\""; }

}  // namespace

std::string_view TakeWord(std::string_view& rest) {
  while (!rest.empty() && IsBlank(rest.front())) rest.remove_prefix(1);
  std::size_t end = 0;
  int depth = 0;
  for (; end < rest.size() && (depth > 0 || !IsBlank(rest[end])); ++end) {
    if (rest[end] == '(') ++depth;
    if (rest[end] == ')') --depth;
  }
  // A word whose parenthesis never closes ends at its first blank.
  if (depth > 0)
    for (end = 0; end < rest.size() && !IsBlank(rest[end]);) ++end;
  const std::string_view word = rest.substr(0, end);
  rest.remove_prefix(end);
  if (!rest.empty()) rest.remove_prefix(1);
  return word;
}

std::string Visible(std::string_view text) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string shown;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\n')
      shown += "\\n";
    else if (c == '\r')
      shown += "\\r";
    else if (byte < 32 || byte == 127)
      shown += {'\\', 'x', kDigits[byte / 16], kDigits[byte % 16]};
    else
      shown += c;
  }
  return shown;
}

std::optional<std::string> Unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      plain += text[i];
      continue;
    }
    const char kind = ++i < text.size() ? text[i] : '\0';
    const int byte = kind == 'x' ? HexByte(text.substr(i + 1)) : -1;
    if (kind == 'r')
      plain += '\r';
    else if (kind == 'n')
      plain += '\n';
    else if (kind == '\\')
      plain += '\\';
    else if (byte >= 0)
      plain += static_cast<char>(byte);
    else
      return {};
    if (byte >= 0) i += 2;
  }
  return plain;
}

long long MillisecondsIn(std::string_view word) {
  double seconds = 0;
  const auto result = std::from_chars(word.data(), word.data() + word.size(), seconds);
  const bool number = !word.empty() && result.ec == std::errc() && result.ptr == word.data() + word.size();
  if (!number || !(seconds >= 0 && seconds <= kMost))
    ScriptIsWrong(Quoted(word) + " is no number of seconds from 0 to 1000000");
  return std::llround(seconds * 1000);
}

int CountIn(std::string_view word) {
  int count = 0;
  const auto result = std::from_chars(word.data(), word.data() + word.size(), count);
  const bool number = result.ec == std::errc() && result.ptr == word.data() + word.size();
  if (!number || count < 1 || count > static_cast<int>(kMost))
    ScriptIsWrong(Quoted(word) + " is no count from 1 to 1000000");
  return count;
}

void ExpectEnd(std::string_view rest) {
  if (const std::string_view more = TakeWord(rest); !more.empty())
    ScriptIsWrong("there is more on the line than the command takes: " + Quoted(more));
}

}  // namespace kelp
