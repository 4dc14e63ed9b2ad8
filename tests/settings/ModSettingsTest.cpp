#include "settings/modSettings.h"

#include <gtest/gtest.h>

#include "tests/support/FakeRegistry.h"

namespace lorelin {
namespace {

class ModSettingsTest : public testing::Test {
 protected:
  void Set(const char* key, const char* text) { store.SaveSetting("settings", key, text); }
  std::string Stored(const char* key) { return store.GetSetting("settings", key, "(fehlt)"); }

  FakeRegistry registry;
  SettingsStore store{registry};
  ModSettings settings{store};
};

TEST_F(ModSettingsTest, HasItsDefaultsInAnEmptyStore) {
  const SettingsValues values = settings.GetSettings();
  EXPECT_EQ(values, (SettingsValues{.prefix = "",
                                    .suffix = "",
                                    .allowRead = true,
                                    .allowVTS = true,
                                    .allowDownload = true,
                                    .launchMailProgram = false,
                                    .readTitle = false,
                                    .readClipboard = false,
                                    .start = StartOption::Interactive}));
}

TEST_F(ModSettingsTest, ChoosesTheStartOption) {
  Set("ShowWB", "0");
  EXPECT_EQ(settings.GetSettings().start, StartOption::Text);
  Set("ShowLastDoc", "1");
  EXPECT_EQ(settings.GetSettings().start, StartOption::LastDocument);
  Set("ShowWB", "1");
  EXPECT_EQ(settings.GetSettings().start, StartOption::LastDocument);
  Set("ShowWB", "ja");
  Set("ShowLastDoc", "0");
  EXPECT_EQ(settings.GetSettings().start, std::nullopt);
}

TEST_F(ModSettingsTest, StoresEveryValueInItsForm) {
  settings.ApplySettings({.prefix = "vor",
                          .suffix = "nach",
                          .allowRead = false,
                          .allowVTS = true,
                          .allowDownload = false,
                          .launchMailProgram = true,
                          .readTitle = true,
                          .readClipboard = false,
                          .start = StartOption::LastDocument});
  EXPECT_EQ(Stored("prefix"), "vor");
  EXPECT_EQ(Stored("suffix"), "nach");
  EXPECT_EQ(Stored("VTSAllowRead"), "0");
  EXPECT_EQ(Stored("VTSAllow"), "1");
  EXPECT_EQ(Stored("VTSAllowDownload"), "0");
  EXPECT_EQ(store.GetSetting("Extension Settings", "LaunchMailProgram", ""), "true");
  EXPECT_EQ(Stored("ReadTitleOnAppChange"), "1");
  EXPECT_EQ(Stored("ReadClipboardOnChange"), "0");
  EXPECT_EQ(Stored("ShowWB"), "0");
  EXPECT_EQ(Stored("ShowLastDoc"), "1");
}

TEST_F(ModSettingsTest, StoresEveryStartOption) {
  for (const auto& [option, browser, document] :
       {std::tuple(StartOption::Interactive, "1", "0"), std::tuple(StartOption::Text, "0", "0"),
        std::tuple(StartOption::LastDocument, "0", "1")}) {
    SettingsValues values;
    values.start = option;
    settings.ApplySettings(values);
    EXPECT_EQ(Stored("ShowWB"), browser);
    EXPECT_EQ(Stored("ShowLastDoc"), document);
    EXPECT_EQ(settings.GetSettings().start, option);
  }
}

TEST_F(ModSettingsTest, LeavesTheStartKeysWithoutAChoice) {
  settings.ApplySettings({});
  EXPECT_EQ(Stored("ShowWB"), "(fehlt)");
  EXPECT_EQ(Stored("ShowLastDoc"), "(fehlt)");
}

TEST_F(ModSettingsTest, ReadsOddNumbersAsCheckValues) {
  Set("VTSAllow", " 0 ");
  Set("VTSAllowRead", "-1");
  Set("VTSAllowDownload", "kaputt");
  Set("ReadTitleOnAppChange", "0,4");
  const SettingsValues values = settings.GetSettings();
  EXPECT_FALSE(values.allowVTS);
  EXPECT_TRUE(values.allowRead);
  EXPECT_TRUE(values.allowDownload);
  EXPECT_FALSE(values.readTitle);
}

TEST_F(ModSettingsTest, WantsARestartForTheTitlesOnly) {
  SettingsValues values = settings.GetSettings();
  values.readClipboard = true;
  EXPECT_FALSE(settings.WantsRestart(values));
  values.readTitle = true;
  EXPECT_TRUE(settings.WantsRestart(values));
  settings.ApplySettings(values);
  EXPECT_FALSE(settings.WantsRestart(values));
}

TEST_F(ModSettingsTest, StoresNothingWhenTheDiskGetsFullOnTheWay) {
  settings.ApplySettings({});
  SettingsValues values;
  values.prefix = "vor";
  values.allowVTS = false;
  values.start = StartOption::LastDocument;
  for (registry.writesUntilFull = 0; registry.writesUntilFull < 10; ++registry.writesUntilFull) {
    const int before = registry.writesUntilFull;
    EXPECT_FALSE(settings.ApplySettings(values)) << before;
    EXPECT_EQ(Stored("Prefix"), "") << before;
    EXPECT_EQ(Stored("VTSAllow"), "1") << before;
    registry.writesUntilFull = before;
  }
  registry.writesUntilFull = 10;
  EXPECT_TRUE(settings.ApplySettings(values));
  EXPECT_EQ(Stored("ShowLastDoc"), "1");
}

TEST_F(ModSettingsTest, TakesTheMailProgramOnlyByTheExactWord) {
  store.SaveSetting("Extension Settings", "LaunchMailProgram", "True");
  EXPECT_FALSE(settings.GetSettings().launchMailProgram);
}

}  // namespace
}  // namespace lorelin
