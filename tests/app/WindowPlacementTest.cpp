#include "app/windowPlacement.h"

#include <gtest/gtest.h>

namespace lorelin {
namespace {

TEST(WindowPlacement, ComesBackAsItWasKept) {
  const WindowPlacement placement{
      .x = -60, .y = 70, .width = 900, .height = 640, .maximized = true, .sash = 210};
  EXPECT_EQ(PlacementText(placement), "-60 70 900 640 1 210");
  EXPECT_EQ(ParsePlacement(PlacementText(placement)), placement);
}

TEST(WindowPlacement, MayHaveMoreBlanks) {
  EXPECT_EQ(ParsePlacement("  1  2 3 4 0   5 "),
            (WindowPlacement{.x = 1, .y = 2, .width = 3, .height = 4, .maximized = false, .sash = 5}));
}

TEST(WindowPlacement, IsNothingElseThanSixNumbers) {
  for (const auto* const text : {"", "Unsinn", "1 2 3 4 0", "1 2 3 4 0 5 6", "1 2 3 4 0 5x", "1 2 3 4 2 5",
                                 "1,2 3 4 0 5 6", "1 2 -3 4 0 5"}) {
    EXPECT_EQ(ParsePlacement(text), std::nullopt) << text;
  }
}

// The sum of a place and a width of this size would be no number any more.
TEST(WindowPlacement, IsNotTakenBeyondEveryScreen) {
  EXPECT_EQ(ParsePlacement("2147483647 0 2147483647 640 0 100"), std::nullopt);
  EXPECT_EQ(ParsePlacement("-2147483648 0 900 640 0 100"), std::nullopt);
  EXPECT_EQ(ParsePlacement("99999999999999 0 900 640 0 100"), std::nullopt);
}

}  // namespace
}  // namespace lorelin
