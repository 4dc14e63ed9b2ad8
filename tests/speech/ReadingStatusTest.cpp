#include "speech/ReadingStatus.h"

#include <gtest/gtest.h>

#include "tests/support/FakePorts.h"

namespace lorelin {
namespace {

class ReadingStatusTest : public testing::Test {
 protected:
  FakeStatusBar bar;
  ReadingStatus status{bar};
};

TEST_F(ReadingStatusTest, KeepsAConditionAsLongAsItIsTrue) {
  status.SetCondition(0, "Es wurde kein Audiogerät gefunden. Der Text wird stumm vorgelesen.");
  EXPECT_EQ(bar.message, "Es wurde kein Audiogerät gefunden. Der Text wird stumm vorgelesen.");
  EXPECT_EQ(bar.notices["reading"], "Es wurde kein Audiogerät gefunden.");
  status.Reads();
  EXPECT_EQ(bar.notices["reading"], "Liest vor …  ·  Es wurde kein Audiogerät gefunden.");
  status.Rests();
  status.ReadToTheEnd();
  EXPECT_EQ(bar.notices["reading"], "Es wurde kein Audiogerät gefunden.");
  status.SetCondition(0, "");
  EXPECT_EQ(bar.notices["reading"], "");
}

TEST_F(ReadingStatusTest, SaysOnceWhatIsWrongWithBothInstances) {
  status.SetCondition(0, "Ausgefallen.");
  status.SetCondition(1, "Ausgefallen.");
  EXPECT_EQ(bar.notices["reading"], "Ausgefallen.");
  status.SetCondition(0, "");
  EXPECT_EQ(bar.notices["reading"], "Ausgefallen.");
}

// A status bar tells a screen reader of what changes only.
TEST_F(ReadingStatusTest, SaysAgainWhatIsTrueAgain) {
  status.ReadToTheEnd();
  status.ReadToTheEnd();
  const std::string sentence(ReadingStatus::kReadToTheEnd);
  EXPECT_EQ(bar.messages, (std::vector<std::string>{sentence, "", sentence}));
}

TEST_F(ReadingStatusTest, KeepsTheHintOfAScriptWhileItRuns) {
  status.ScriptRuns("Wecker.vts");
  status.Reads();
  status.ReadToTheEnd();
  EXPECT_EQ(bar.notices["reading"], "Liest vor …  ·  ESC beendet „Wecker.vts“");
  status.Rests();
  status.ScriptRuns("");
  EXPECT_EQ(bar.notices["reading"], "");
}

TEST_F(ReadingStatusTest, ForgetsOnlyWhatItSaidItself) {
  status.ReadToTheEnd();
  bar.SetMessage("von jemand anderem");
  status.Forget();
  EXPECT_EQ(bar.message, "von jemand anderem");
  status.ReadToTheEnd();
  status.Forget();
  EXPECT_EQ(bar.message, "");
}

TEST_F(ReadingStatusTest, KeepsAFileThatWasNotWrittenUntilOneIsOrAScriptBegins) {
  status.NotSaved("/a/x.wav", "Kein Platz.");
  status.Reads();
  status.Rests();
  EXPECT_EQ(bar.notices["reading"], "„x.wav“ wurde nicht gespeichert.");
  status.Saved("/a/y.wav");
  EXPECT_EQ(bar.notices["reading"], "");
  EXPECT_EQ(bar.message, "Gespeichert: y.wav");
  status.NotSaved("/a/x.wav", "Kein Platz.");
  status.ScriptRuns("a.vts");
  EXPECT_EQ(bar.notices["reading"], "ESC beendet „a.vts“");
}

}  // namespace
}  // namespace lorelin
