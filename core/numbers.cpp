// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/numbers.hpp"

#include <charconv>
#include <cmath>

#include "core/counter16.hpp"
#include "core/text.hpp"

namespace kelp {

double Val(std::string_view text) {
  const auto start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return 0;
  text.remove_prefix(start);
  double sign = 1;
  if (text.front() == '+' || text.front() == '-') {
    sign = text.front() == '-' ? -1 : 1;
    text.remove_prefix(1);
  }
  // "inf" and "nan" are no readings: only a digit or a point begins a number.
  if (text.empty() || (text.front() != '.' && (text.front() < '0' || text.front() > '9'))) return 0;
  double value = 0;
  for (const auto format : {std::chars_format::general, std::chars_format::fixed}) {
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value, format);
    if (result.ec == std::errc()) return sign * value;
    if (result.ec == std::errc::invalid_argument) return 0;
  }
  return 0;
}

std::string Fixed(double value, int decimals) {
  if (!std::isfinite(value)) value = 0;
  char buffer[400];
  const auto result =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals);
  std::string text(buffer, result.ptr);
  if (text.find_first_not_of("-0.") == std::string::npos && text.front() == '-') text.erase(0, 1);
  return text;
}

std::string PaddedProcNum(std::string_view procNum) { return Padded(procNum, 3, "L", "0"); }

std::string NextProcNum(std::string_view procNum) {
  Counter16 number = ToInt16(Val(procNum));
  ++number;
  return PaddedProcNum(std::to_string(int{number}));
}

}  // namespace kelp
