#include "base/clockTime.h"

#include <gtest/gtest.h>

namespace lorelin {
namespace {

using std::chrono::milliseconds;

TEST(ClockTime, HasAsManyDigitsOfHoursAsItNeeds) {
  EXPECT_EQ(ClockTime(milliseconds(0), 1), "0:00:00.000");
  EXPECT_EQ(ClockTime(milliseconds(3723004), 1), "1:02:03.004");
  EXPECT_EQ(ClockTime(milliseconds(3723004), 2), "01:02:03.004");
  EXPECT_EQ(ClockTime(std::chrono::hours(100) + milliseconds(999), 2), "100:00:00.999");
}

}  // namespace
}  // namespace lorelin
