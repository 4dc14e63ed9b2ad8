#include "app/SleepTimer.h"

#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class SleepTimerTest : public ScriptFixture {
 protected:
  void Read(std::string_view text) {
    document.text = text;
    window.RunCommand("SpeakDocument");
  }
  void Hear(std::string_view word) {
    const std::string& text = voice.SpokenText();
    const std::size_t begin = CountCharacters(std::string_view(text).substr(0, text.find(word)));
    voice.Hear({begin, begin + CountCharacters(word)});
    pump.RunPendingEvents();
  }
  std::string Notice() { return statusBar.notices["sleep"]; }
};

TEST_F(SleepTimerTest, EndsTheReadingWhenItsTimeIsOver) {
  Read("Eins. Zwei.");
  Hear("Zwei");
  window.RunCommand("SleepIn30");
  EXPECT_EQ(alarm.time, std::chrono::minutes(30));
  EXPECT_EQ(Notice(), "Schlafzeit bis 9:35");
  EXPECT_TRUE(view.checks["mnuSleep30"]);
  alarm.Ring();
  pump.RunPendingEvents();
  EXPECT_FALSE(modules.along.IsReading());
  EXPECT_EQ(marks.caret, std::optional<std::size_t>(6));
  EXPECT_EQ(statusBar.message, "Die Schlafzeit ist um.");
  EXPECT_EQ(Notice(), "");
  EXPECT_TRUE(view.checks["mnuSleepOff"]);
  EXPECT_FALSE(view.checks["mnuSleep30"]);
}

TEST_F(SleepTimerTest, CanBeSetAnewAndTakenBack) {
  Read("Eins. Zwei.");
  window.RunCommand("SleepIn15");
  window.RunCommand("SleepIn60");
  EXPECT_EQ(alarm.time, std::chrono::minutes(60));
  EXPECT_EQ(Notice(), "Schlafzeit bis 10:05");
  window.RunCommand("SleepOff");
  EXPECT_EQ(Notice(), "");
  EXPECT_FALSE(alarm.ring);
  EXPECT_TRUE(modules.along.IsReading());
}

TEST_F(SleepTimerTest, EndsTheReadingWithTheParagraph) {
  Read("Eins. Zwei.\n\nDrei. Vier.\n\nFünf.");
  EXPECT_EQ(modules.commands.IsPossible("SleepAtParagraph"), std::optional(false));
  Hear("Eins");
  window.RunCommand("SleepAtParagraph");
  EXPECT_EQ(Notice(), "Schlafzeit bis zum Ende des Absatzes");
  Hear("Zwei");
  EXPECT_TRUE(modules.along.IsReading());
  Hear("Drei");
  EXPECT_FALSE(modules.along.IsReading());
  EXPECT_EQ(Notice(), "");
}

TEST_F(SleepTimerTest, MeansTheParagraphWhereTheReaderGoes) {
  Read("Eins. Zwei.\n\nDrei. Vier.\n\nFünf.");
  Hear("Eins");
  window.RunCommand("SleepAtParagraph");
  window.RunCommand("ParagraphOn");
  Hear("Drei");
  EXPECT_TRUE(modules.along.IsReading());
  Hear("Vier");
  Hear("Fünf");
  EXPECT_FALSE(modules.along.IsReading());
}

TEST_F(SleepTimerTest, OutlivesATextUnlessItIsTheParagraphs) {
  Read("Eins.");
  Hear("Eins");
  window.RunCommand("SleepAtParagraph");
  voice.Finish();
  EXPECT_EQ(Notice(), "");
  Read("Zwei.");
  window.RunCommand("SleepIn15");
  voice.Finish();
  EXPECT_EQ(Notice(), "Schlafzeit bis 9:20");
}

TEST_F(SleepTimerTest, IsOffWhenTheWindowIsLoaded) {
  window.Load();
  EXPECT_TRUE(view.checks["mnuSleepOff"]);
}

}  // namespace
}  // namespace lorelin
