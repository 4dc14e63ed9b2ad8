#include "settings/readingLook.h"

#include <gtest/gtest.h>

#include "base/contrast.h"
#include "tests/support/FakeRegistry.h"

namespace lorelin {
namespace {

class ReadingLookTest : public testing::Test {
 protected:
  FakeRegistry registry;
  SettingsStore settings{registry};
};

TEST_F(ReadingLookTest, IsTheUsualOneUntilSomethingIsStored) {
  EXPECT_EQ(LoadLook(settings), LookSettings{});
  EXPECT_EQ(LookOf(LookSettings{}), ReadingLook{});
}

TEST_F(ReadingLookTest, IsStored) {
  const LookSettings look{.font = "OpenDyslexic",
                          .points = 18,
                          .lineSpacing = 150,
                          .letterSpacing = 10,
                          .columnWidth = 65,
                          .scheme = ColourScheme::Own,
                          .ownText = 0x0A1B2C,
                          .ownGround = 0xFFEEDD};
  EXPECT_TRUE(SaveLook(settings, look));
  EXPECT_EQ(LoadLook(settings), look);
  EXPECT_EQ(settings.Get(setting::ReadingText), "0A1B2C");
  EXPECT_TRUE(SaveLook(settings, {}));
  EXPECT_EQ(LoadLook(settings), LookSettings{});
}

TEST_F(ReadingLookTest, LocksNobodyOutWhateverIsStored) {
  settings.Save(setting::ReadingPoints, "1");
  settings.Save(setting::ReadingLines, "-99999999999999999999");
  settings.Save(setting::ReadingLetters, "4000");
  settings.Save(setting::ReadingColumn, "1");
  settings.Save(setting::ReadingColours, "Unsinn");
  settings.Save(setting::ReadingText, "FFFF0");
  settings.Save(setting::ReadingGround, "gelb");
  const LookSettings look = LoadLook(settings);
  EXPECT_EQ(look.points, kFewestPoints);
  EXPECT_EQ(look.lineSpacing, 100);
  EXPECT_EQ(look.letterSpacing, 50);
  EXPECT_EQ(look.columnWidth, 20);
  EXPECT_EQ(look.scheme, ColourScheme::System);
  EXPECT_EQ(look.ownText, 0x000000U);
  EXPECT_EQ(look.ownGround, 0xFFFFFFU);
  settings.Save(setting::ReadingPoints, "gross");
  EXPECT_EQ(LoadLook(settings).points, 0);
}

TEST_F(ReadingLookTest, CanBeReadInEveryScheme) {
  for (const ColourScheme scheme : {ColourScheme::Cream, ColourScheme::Dark, ColourScheme::YellowOnBlack}) {
    const auto colours = LookOf({.scheme = scheme}).colours;
    ASSERT_TRUE(colours.has_value());
    EXPECT_TRUE(CanBeRead(*colours));
  }
}

TEST_F(ReadingLookTest, ShowsYellowOnYellowInBlack) {
  const LookSettings yellow{.scheme = ColourScheme::Own, .ownText = 0xFFFF00, .ownGround = 0xFFFF00};
  EXPECT_EQ(LookOf(yellow).colours, (LookColours{.text = 0x000000, .ground = 0xFFFF00}));
  const LookSettings blue{.scheme = ColourScheme::Own, .ownText = 0x000050, .ownGround = 0x000040};
  EXPECT_EQ(LookOf(blue).colours, (LookColours{.text = 0xFFFFFF, .ground = 0x000040}));
  const LookSettings fine{.scheme = ColourScheme::Own, .ownText = 0x102030, .ownGround = 0xF0F0FF};
  EXPECT_EQ(LookOf(fine).colours, (LookColours{.text = 0x102030, .ground = 0xF0F0FF}));
}

TEST_F(ReadingLookTest, OffersFontsThatAreEasyToReadFirst) {
  EXPECT_EQ(
      FontsToOffer({"Zilla", "arial", "OpenDyslexic", "@Arial", "Arial", "Atkinson Hyperlegible", "arial"}),
      (std::vector<std::string>{"Atkinson Hyperlegible", "OpenDyslexic", "Arial", "arial", "Zilla"}));
}

TEST(ContrastOf, IsThatOfTheGuidelines) {
  EXPECT_DOUBLE_EQ(ContrastOf(0x000000, 0xFFFFFF), 21);
  EXPECT_DOUBLE_EQ(ContrastOf(0x123456, 0x123456), 1);
  EXPECT_NEAR(ContrastOf(0x777777, 0xFFFFFF), 4.48, 0.005);
}

}  // namespace
}  // namespace lorelin
