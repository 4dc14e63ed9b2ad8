#include "scripts/CommandPicker.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lorelin {
namespace {

class CommandPickerTest : public testing::Test {
 protected:
  std::size_t Index(const std::string& name) {
    const auto names = picker.Names();
    return static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
  }
  std::string Line(const std::string& name, const std::string& first = "", const std::string& second = "") {
    return picker.Line(Index(name), first, second).value_or("(falsch)");
  }
  CommandPicker picker;
};

TEST_F(CommandPickerTest, OffersTheCommandsInTheirOrder) {
  const auto names = picker.Names();
  ASSERT_EQ(names.size(), 23U);
  EXPECT_EQ(names.front(), "Sprechen");
  EXPECT_EQ(names.back(), "Download");
  EXPECT_EQ(std::count(names.begin(), names.end(), "Lautstärke"), 0);
}

TEST_F(CommandPickerTest, TellsWhichParametersACommandTakes) {
  EXPECT_EQ(picker.ParameterHint(Index("Sprechen")), "();");
  EXPECT_EQ(picker.ParameterHint(Index("Warten")), "(Zahl als Parameter);");
  EXPECT_EQ(picker.ParameterHint(Index("Ersetzen")), "(Text als Parameter,Text als zweiter Parameter);");
  EXPECT_FALSE(picker.NeedsParameter1(Index("Sprechen")));
  EXPECT_TRUE(picker.NeedsParameter1(Index("Warten")));
  EXPECT_FALSE(picker.NeedsParameter2(Index("Warten")));
  EXPECT_TRUE(picker.NeedsParameter2(Index("Ersetzen")));
}

TEST_F(CommandPickerTest, AnnouncesAParameterOfKindNichtsForPause) {
  EXPECT_TRUE(picker.NeedsParameter1(Index("Pause")));
  EXPECT_EQ(picker.ParameterHint(Index("Pause")), "(Nichts als Parameter);");
}

TEST_F(CommandPickerTest, BuildsTheLine) {
  EXPECT_EQ(Line("Stopp", "(nicht benötigt)", "(nicht benötigt)"), "Stopp();");
  EXPECT_EQ(Line("Warten", "10", "(nicht benötigt)"), "Warten(10);");
  EXPECT_EQ(Line("Ersetzen", "alt", "neu"), "Ersetzen(alt,neu);");
  EXPECT_EQ(Line("Sprechen2", "a,b"), "Sprechen2(a,b);");
  EXPECT_EQ(Line("Pause", ""), "Pause();");
}

TEST_F(CommandPickerTest, ChecksNumbersAndPercentagesOnly) {
  EXPECT_EQ(Line("Warten", "abc"), "(falsch)");
  EXPECT_EQ(Line("Warten", ""), "(falsch)");
  EXPECT_EQ(Line("Geschwindigkeit", "schnell"), "(falsch)");
  EXPECT_EQ(Line("Geschwindigkeit", "1000"), "Geschwindigkeit(1000);");
  EXPECT_EQ(Line("Springe", "x"), "(falsch)");
  EXPECT_EQ(Line("WartenBis", "bald"), "WartenBis(bald);");
}

TEST_F(CommandPickerTest, NamesTheKindThatItExpects) {
  EXPECT_EQ(picker.ErrorText(Index("Warten")),
            "Skriptfehler:\n\nDer Befehl Warten(); erwartet als Parameter folgenden Typ: Zahl");
}

}  // namespace
}  // namespace lorelin
