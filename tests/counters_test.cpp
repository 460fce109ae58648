// Counters and number texts.
#include <gtest/gtest.h>

#include "core/counter16.hpp"
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

}  // namespace kelp
