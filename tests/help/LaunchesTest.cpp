#include "help/launches.h"

#include "base/version.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class LaunchesTest : public ScriptFixture {
 protected:
  std::string version = std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor);
  std::string maker = kMakerAddress;
};

TEST_F(LaunchesTest, OpenWhatTheMenuNames) {
  launches.GetMoreVoices();
  launches.ReportError();
  launches.SearchForUpdates();
  launches.ManageExtensions();
  EXPECT_EQ(shell.opened,
            (std::vector<std::string>{maker + "/lorelin/getmorevoices/ in  as 0",
                                      maker + "/submit_bug/?program=Lorelin " + version + " in  as 1",
                                      "loUpdater.exe in " + folder.Path() + " as 0",
                                      "XMGR.exe in " + folder.Path() + " as 0"}));
}

TEST_F(LaunchesTest, KeepQuietWhenNothingCanBeOpened) {
  shell.works = false;
  launches.SearchForUpdates();
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_EQ(log.lines, std::vector<std::string>{"Nicht geöffnet: loUpdater.exe"});
}

TEST_F(LaunchesTest, InviteUntilTheUserHasAnswered) {
  InviteToSurvey(helpDialogs, settings, launches);
  InviteToSurvey(helpDialogs, settings, launches);
  EXPECT_EQ(helpDialogs.shown.size(), 2U);
  EXPECT_EQ(settings.Get(setting::Survey), "true");
  helpDialogs.answer = SurveyAnswer::No;
  InviteToSurvey(helpDialogs, settings, launches);
  InviteToSurvey(helpDialogs, settings, launches);
  EXPECT_EQ(helpDialogs.shown.size(), 3U);
  EXPECT_TRUE(shell.opened.empty());
}

TEST_F(LaunchesTest, OpenTheSurveyForWhoeverAgrees) {
  helpDialogs.answer = SurveyAnswer::Yes;
  InviteToSurvey(helpDialogs, settings, launches);
  EXPECT_EQ(shell.opened,
            std::vector<std::string>{maker + "/lorelin/survey/?version=" + version + " in  as 1"});
  EXPECT_EQ(settings.Get(setting::Survey), "false");
}

TEST_F(LaunchesTest, TakeOnlyTheExactWordForAnAnswer) {
  settings.Save(setting::Survey, "False");
  InviteToSurvey(helpDialogs, settings, launches);
  EXPECT_EQ(helpDialogs.shown.size(), 1U);
}

}  // namespace
}  // namespace lorelin
