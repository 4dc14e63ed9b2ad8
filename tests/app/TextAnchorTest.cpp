#include "app/TextAnchor.h"

#include <gtest/gtest.h>

namespace lorelin {
namespace {

TEST(TextAnchorTest, FindsThePlaceInATextThatStayed) {
  const std::string text = "Öl und Äpfel. Öl und Birnen.";
  EXPECT_EQ(PlaceOf(AnchorAt(text, 14), text), 14U);
  EXPECT_EQ(PlaceOf(AnchorAt(text, 0), text), 0U);
}

TEST(TextAnchorTest, FollowsItsWordsToTheNearestPlace) {
  const TextAnchor anchor{.character = 20, .words = "Kapitel"};
  EXPECT_EQ(PlaceOf(anchor, "Kapitel ............. xx Kapitel"), 25U);
  EXPECT_EQ(PlaceOf(anchor, "............ Kapitel"), 13U);
}

TEST(TextAnchorTest, StaysWhereItWasWhenItsWordsAreGone) {
  EXPECT_EQ(PlaceOf({.character = 3, .words = "weg"}, "äöüß"), 3U);
  EXPECT_EQ(PlaceOf({.character = 30, .words = "weg"}, "äöüß"), 4U);
  EXPECT_EQ(PlaceOf({.character = 9, .words = ""}, "äöüß"), 4U);
}

}  // namespace
}  // namespace lorelin
