// Texts and numbers as the fixed-width files, the boxes and the station table need them.
#include <gtest/gtest.h>

#include "core/date_time.hpp"
#include "core/numbers.hpp"
#include "core/run_state.hpp"
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
  struct Row {
    const char* text;
    double value;
  };
  static constexpr Row kRows[] = {{"", 0},      {"  1.25", 1.25}, {"12abc", 12},  {".5", 0.5},
                                  {"5.", 5},    {"-0.25", -0.25}, {"+3", 3},      {"1e2x", 100},
                                  {"1e", 1},    {"nan", 0},       {"inf", 0},     {"-inf", 0},
                                  {"--1", 0},   {"0x10", 0},      {"1,5", 1},     {"- 1", 0},
                                  {"1e999", 1}, {"Read 1", 0},    {"1.2.3", 1.2}, {"\t5", 0}};
  for (const Row& row : kRows) EXPECT_DOUBLE_EQ(Val(row.text), row.value) << row.text;
}

TEST(Numbers, TextsHaveFixedDecimalsAndNoMinusBeforeZero) {
  EXPECT_EQ(RawText(0.5), "0.500");
  EXPECT_EQ(SavedText(-0.00001), "0.0000");
  EXPECT_EQ(RatioText(-99), "-99.00");
  EXPECT_EQ(ResultText(561.2386), "561.239");
  EXPECT_EQ(NextProcNum("1"), "002");
  EXPECT_EQ(NextProcNum("989"), "990");
  EXPECT_EQ(NextProcNum("1233"), "1234");
  EXPECT_THROW(NextProcNum("32767"), RunTimeError);
}

TEST(Text, PadStrPadsBySideAndFillOnly) {
  struct Row {
    const char* text;
    std::size_t width;
    const char* side;
    const char* fill;
    const char* padded;
  };
  static constexpr Row kRows[] = {{"7", 3, "L", "0", "007"},     {"7", 3, "l", "0", "007"},
                                  {"ab", 4, "R", "S", "ab  "},   {"ab", 4, "L", "s", "  ab"},
                                  {"1234", 3, "L", "0", "1234"}, {"ab", 4, "X", "S", "ab"},
                                  {"ab", 4, "L", "X", "ab"}};
  for (const Row& row : kRows)
    EXPECT_EQ(Padded(row.text, row.width, row.side, row.fill), row.padded) << row.text;
}

TEST(StationTable, ALineIsSplitOnRunsOfBlanks) {
  RunState run;
  SplitToRow(run, "2 07    3  138 8   ", 5);
  EXPECT_EQ(run.SampTbl(5, 1), "07");
  EXPECT_EQ(run.SampTbl(5, 2), "3");
  EXPECT_EQ(run.SampTbl(5, 4), "8");
  EXPECT_EQ(run.SampTbl(5, 5), "");
  const auto kindOf = [&](const std::string& line, int row) {
    try {
      SplitToRow(run, line, row);
    } catch (const RunTimeError& error) {
      return std::string(ErrorName(error.kind()));
    }
    return std::string();
  };
  EXPECT_EQ(kindOf("1 2 3 4 5 6 7 8 9 10 11 12 13 14 ", 104), "");
  EXPECT_EQ(kindOf("1 2 3 4 5 6 7 8 9 10 11 12 13 14 15", 6), "Subscript out of range");
  EXPECT_EQ(kindOf("2 07", 105), "Subscript out of range");
  EXPECT_EQ(kindOf(" 2 07", 7), "Invalid procedure call");
}

TEST(DateTime, MarkTimesAreReadInFourFormsAndNothingElse) {
  struct Row {
    const char* text;
    const char* read;
  };
  static constexpr Row kRows[] = {{"07/09/2026 23:30:00", "07/09/2026 23:30:00"},
                                  {"7/9/2026 11:30:00 PM", "07/09/2026 23:30:00"},
                                  {"7/9/2026 12:00:01 am", "07/09/2026 00:00:01"},
                                  {"Jul 09 2026 23:30:00", "07/09/2026 23:30:00"},
                                  {"2026-07-09 23:30:00", "07/09/2026 23:30:00"},
                                  {"02/29/2024 00:00:00", "02/29/2024 00:00:00"},
                                  {"02/29/2026 00:00:00", ""},
                                  {"13/01/2026 00:00:00", ""},
                                  {"07/09/2026 24:00:00", ""},
                                  {"7/9/2026 13:00:00 PM", ""},
                                  {"07/09/2026", ""},
                                  {"no date", ""},
                                  {"", ""}};
  for (const Row& row : kRows) {
    const auto time = ParseDateTime(row.text);
    EXPECT_EQ(time ? ShortDate(*time) + " " + LongTime(*time) : "", row.read) << row.text;
  }
}

}  // namespace kelp
