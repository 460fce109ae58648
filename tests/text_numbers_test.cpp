// SPDX-License-Identifier: GPL-3.0-or-later
// Texts and numbers as the fixed-width files, the boxes and the station table need them.
#include <gtest/gtest.h>

#include <tuple>

#include "core/counter16.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/error.hpp"

namespace kelp {

TEST(Counter16, LeavingTheRangeIsOverflowAndRoundingIsHalfToEven) {
  Counter16 counter = 32767;
  EXPECT_THROW(++counter, RunTimeError);
  EXPECT_EQ(counter, 32767);
  EXPECT_EQ(ToInt16(2.5), 2);
  EXPECT_EQ(ToInt16(3.5), 4);
  EXPECT_EQ(ToInt16(-2.5), -2);
  EXPECT_THROW(ToInt16(1e300), RunTimeError);
  EXPECT_THROW(ToInt16(-32769), RunTimeError);
}

TEST(Numbers, ALenientParseTakesTheLeadingNumber) {
  static constexpr std::tuple<const char*, double> kRows[] = {
      {"  1.25", 1.25}, {".5", 0.5}, {"-0.25", -0.25}, {"+3", 3},  {"1e2x", 100}, {"1e", 1},
      {"-inf", 0},      {"--1", 0},  {"0x10", 0},      {"1,5", 1}, {"- 1", 0},    {"\t5", 0}};
  for (const auto& [text, value] : kRows) EXPECT_DOUBLE_EQ(Val(text), value) << text;
}

TEST(Numbers, TextsHaveFixedDecimalsAndNoMinusBeforeZero) {
  EXPECT_EQ(RawText(0.5), "0.500");
  EXPECT_EQ(SavedText(-0.00001), "0.0000");
  EXPECT_EQ(RatioText(-99), "-99.00");
  EXPECT_EQ(ResultText(561.2386), "561.239");
  EXPECT_EQ(NextProcNum("1233"), "1234");
  EXPECT_THROW(NextProcNum("32767"), RunTimeError);
}

TEST(Text, PadStrPadsBySideAndFillOnly) {
  static constexpr std::tuple<const char*, std::size_t, const char*, const char*, const char*> kRows[] = {
      {"7", 3, "L", "0", "007"},   {"7", 3, "l", "0", "007"},     {"ab", 4, "R", "S", "ab  "},
      {"ab", 4, "L", "s", "  ab"}, {"1234", 3, "L", "0", "1234"}, {"ab", 4, "X", "S", "ab"},
      {"ab", 4, "L", "X", "ab"}};
  for (const auto& [text, width, side, fill, padded] : kRows)
    EXPECT_EQ(Padded(text, width, side, fill), padded) << text;
}

}  // namespace kelp
