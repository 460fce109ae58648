// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquire/parser.hpp"

#include <cmath>

#include "core/numbers.hpp"
#include "core/text.hpp"

namespace kelp {

namespace {
constexpr std::string_view kEndMark = "RAW)";
constexpr std::size_t kMaxUnread = 64 * 1024;
constexpr std::size_t kNumberWidth = 7;
}  // namespace

bool HoldsReading(std::string_view accumulator) { return Contains(accumulator, kEndMark); }

float ReadingIn(std::string_view accumulator) {
  const auto sign = accumulator.find('=');
  const auto start = sign == std::string_view::npos ? 0 : sign + 1;
  const auto reading = static_cast<float>(Val(accumulator.substr(start, kNumberWidth)));
  return std::isfinite(reading) ? reading : 0;
}

void DropRead(std::string& accumulator) {
  const auto mark = accumulator.rfind(kEndMark);
  if (mark != std::string::npos) accumulator.erase(0, mark + kEndMark.size());
}

void BoundAccumulator(std::string& accumulator) {
  if (accumulator.size() > kMaxUnread) accumulator.erase(0, accumulator.size() - kMaxUnread);
}

int ChartDivisor(float reading) {
  if (reading <= 1) return 1;
  if (reading <= 10) return 10;
  return reading <= 20 ? 20 : 30;
}

float ChartValue(float reading) { return reading / static_cast<float>(ChartDivisor(reading)); }

}  // namespace kelp
