#include "settings/SettingsStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/FakeRegistry.h"

namespace lorelin {
namespace {

class Settings : public testing::Test {
 protected:
  FakeRegistry registry;
  SettingsStore settings{registry};
};

TEST_F(Settings, LieBelowTheApplicationsTree) {
  settings.SaveSetting("settings", "path", "/opt");
  const auto value = registry.ReadValue(RegistryHive::CurrentUser,
                                        "Software\\VB and VBA Program Settings\\Lorelin\\settings", "path");
  ASSERT_TRUE(value);
  EXPECT_EQ(*value, (RegistryValue{RegistryType::String, "/opt"}));
}

TEST_F(Settings, ReadAsTheirDefaultsForAFreshUser) {
  EXPECT_EQ(settings.Get(setting::Voice), "1");
  EXPECT_EQ(settings.Get(setting::Speed), "25");
  EXPECT_EQ(settings.Get(setting::Pitch), "50");
  EXPECT_EQ(settings.Get(setting::Volume), "100");
  EXPECT_EQ(settings.Get(setting::Prefix), "");
  EXPECT_EQ(settings.Get(setting::Suffix), "");
  EXPECT_EQ(settings.Get(setting::ShowWB), "1");
  EXPECT_EQ(settings.Get(setting::ShowLastDoc), "0");
  EXPECT_EQ(settings.Get(setting::VTSAllow), "1");
  EXPECT_EQ(settings.Get(setting::VTSAllowRead), "1");
  EXPECT_EQ(settings.Get(setting::VTSAllowDownload), "1");
  EXPECT_EQ(settings.Get(setting::ReadTitleOnAppChange), "0");
  EXPECT_EQ(settings.Get(setting::ReadClipboardOnChange), "0");
  EXPECT_EQ(settings.Get(setting::ShowVTS), "0");
  EXPECT_EQ(settings.Get(setting::ShowPauseMsg), "yes");
  EXPECT_EQ(settings.Get(setting::Survey), "true");
  EXPECT_EQ(settings.Get(setting::LaunchMailProgram), "false");
}

TEST_F(Settings, ProposeAnotherSpeedAndPitchInTheDialogs) {
  EXPECT_EQ(settings.Get(setting::SpeedInDialog), "60");
  EXPECT_EQ(settings.Get(setting::PitchInDialog), "60");
  settings.Save(setting::SpeedInDialog, "42");
  EXPECT_EQ(settings.Get(setting::Speed), "42");
}

TEST_F(Settings, MeetUnderEitherSpelling) {
  settings.SaveSetting("Settings", "Prefix", "Achtung");
  EXPECT_EQ(settings.GetSetting("settings", "prefix", ""), "Achtung");
  settings.Save(setting::LastDoc, "/a.txt");
  EXPECT_EQ(settings.Get(setting::LastDocAtStart), "/a.txt");
}

TEST_F(Settings, TakeAValueOfAnotherTypeForMissing) {
  registry.WriteValue(RegistryHive::CurrentUser, "Software\\VB and VBA Program Settings\\Lorelin\\settings",
                      "ShowWB", MakeDoubleWord(0));
  EXPECT_EQ(settings.Get(setting::ShowWB), "1");
}

TEST_F(Settings, AreOverriddenWithoutBeingStored) {
  settings.Save(setting::Speed, "30");
  settings.Override(setting::Speed, "90");
  EXPECT_EQ(settings.Get(setting::Speed), "90");
  EXPECT_EQ(SettingsStore(registry).Get(setting::Speed), "30");
  settings.Save(setting::Speed, "40");
  EXPECT_EQ(settings.Get(setting::Speed), "40");
}

TEST_F(Settings, ForbidScriptsWhileTheyCannotBeRead) {
  settings.Save(setting::VTSAllow, "1");
  registry.state = RegistryState::Unreadable;
  EXPECT_EQ(settings.Get(setting::VTSAllow), "0");
  EXPECT_EQ(settings.Get(setting::VTSAllowRead), "0");
  EXPECT_EQ(settings.GetSetting("settings", "vtsallowdownload", "1"), "0");
  EXPECT_EQ(settings.Get(setting::ShowWB), "1");
  EXPECT_EQ(settings.WhyForbidden(), "Die Einstellungen können nicht gelesen werden.");
  registry.state = RegistryState::Whole;
  EXPECT_EQ(settings.Get(setting::VTSAllow), "1");
  EXPECT_EQ(settings.WhyForbidden(), "");
}

TEST_F(Settings, ForbidScriptsAfterALossUntilSomebodyAllowsThem) {
  registry.state = RegistryState::Replaced;
  EXPECT_EQ(settings.Get(setting::VTSAllow), "0");
  EXPECT_EQ(settings.Get(setting::VTSAllowRead), "0");
  EXPECT_THAT(settings.WhyForbidden(), testing::HasSubstr("wieder zu"));
  settings.Save(setting::VTSAllow, "1");
  EXPECT_EQ(settings.Get(setting::VTSAllow), "1");
  EXPECT_EQ(settings.WhyForbidden(), "");
  EXPECT_EQ(settings.Get(setting::VTSAllowRead), "0");
}

TEST(Switches, AreOnForTheirExactWordOnly) {
  EXPECT_TRUE(IsOn(setting::ShowWB, "1"));
  EXPECT_FALSE(IsOn(setting::ShowWB, "true"));
  EXPECT_FALSE(IsOn(setting::ShowWB, " 1"));
  EXPECT_TRUE(IsOn(setting::Survey, "true"));
  EXPECT_FALSE(IsOn(setting::Survey, "True"));
  EXPECT_FALSE(IsOn(setting::Survey, "1"));
}

TEST(SettingsTable, GivesEveryDefaultInItsForm) {
  for (const SettingKey* key : setting::All) {
    const std::string_view text = key->defaultText;
    switch (key->form) {
      case SettingForm::OneZero:
        EXPECT_TRUE(text == "1" || text == "0") << key->name;
        break;
      case SettingForm::TrueFalse:
        EXPECT_TRUE(text == "true" || text == "false") << key->name;
        break;
      case SettingForm::YesFalse:
        EXPECT_TRUE(text == "yes" || text == "false") << key->name;
        break;
      case SettingForm::Number:
        EXPECT_TRUE(std::all_of(text.begin(), text.end(), isdigit)) << key->name;
        break;
      case SettingForm::Text: {  // nothing, a colour, a web address or a choice
        const bool digits = std::all_of(text.begin(), text.end(), isxdigit);
        const bool known = text.starts_with("https://") || text == "mp3" || text == "mittel";
        EXPECT_TRUE(text.empty() || (text.size() == 6 && digits) || known) << key->name;
        break;
      }
      case SettingForm::Path:
        EXPECT_EQ(text, "") << key->name;
        break;
    }
  }
}

}  // namespace
}  // namespace lorelin
