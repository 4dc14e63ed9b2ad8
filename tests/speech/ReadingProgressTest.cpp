#include "speech/ReadingProgress.h"

#include <gtest/gtest.h>

#include "base/textEncoding.h"
#include "tests/support/FakePlaceBar.h"
#include "tests/support/FakeReadingMarks.h"
#include "tests/support/SpeechFixture.h"

namespace lorelin {
namespace {

using std::chrono::seconds;

class ReadingProgressTest : public SpeechFixture {
 protected:
  ReadingProgressTest() {
    Set(setting::SpellOut, "0");  // the words of the tests have numbers
    along.Tell({.begins = [this] { progress.Begins(); },
                .moved = [this] { progress.Moved(); },
                .holds = [this](bool held) { progress.Holds(held); },
                .ends = [this] { progress.Ends(); }});
  }
  void Read(std::string_view text) {
    document.text = text;
    speech.SpeakToolbar();
  }
  void Hear(std::string_view word) {
    const std::string& text = voice.SpokenText();
    const std::size_t at = text.find(word);
    ASSERT_NE(at, std::string::npos) << word << " in " << text;
    const std::size_t begin = CountCharacters(std::string_view(text).substr(0, at));
    voice.Hear({begin, begin + CountCharacters(word)});
  }
  // "Satz 1. ..."
  static std::string Sentences(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "Wort" + std::to_string(i) + " gilt. ";
    return text;
  }
  std::string Shown() const { return bar.shown ? bar.shown->text : "-"; }

  FakeReadingMarks marks;
  FakePlaceBar bar;
  ReadingAlong along{speech, marks, settings};
  ReadingProgress progress{
      {.along = along, .speech = speech, .document = document, .bar = bar, .clock = clock}};
};

TEST_F(ReadingProgressTest, CountsTheSentences) {
  Read("Guten Tag. Schöne Grüße. Ende.");
  EXPECT_EQ(Shown(), "-");
  Hear("Guten");
  EXPECT_EQ(Shown(), "Satz 1 von 3  ·  0:00");
  Hear("Grüße");
  EXPECT_EQ(bar.shown->sentence, 2U);
  EXPECT_EQ(bar.shown->sentences, 3U);
  EXPECT_FALSE(progress.IsInLastSentence());
  Hear("Ende");
  EXPECT_TRUE(progress.IsInLastSentence());
}

TEST_F(ReadingProgressTest, TellsTheTimeThatWasHeardAndTheRestAtThisPace) {
  Read(Sentences(100));
  Hear("Wort0");
  clock.steady += seconds(6);
  Hear("Wort10");
  EXPECT_EQ(Shown(), "Satz 11 von 100  ·  0:06  ·  noch 1 min");
}

TEST_F(ReadingProgressTest, LeavesPausesOut) {
  Read(Sentences(100));
  Hear("Wort0");
  speech.PauseSpeech();
  clock.steady += seconds(600);
  speech.PauseSpeech();
  clock.steady += seconds(2);
  Hear("Wort10");
  EXPECT_EQ(Shown(), "Satz 11 von 100  ·  0:02");
}

TEST_F(ReadingProgressTest, ForgetsThePaceWithAnotherSpeed) {
  Read(Sentences(100));
  Hear("Wort0");
  clock.steady += seconds(6);
  Hear("Wort10");
  Set(setting::Speed, "80");
  along.RepeatSentence();
  Hear("Wort10");
  EXPECT_EQ(Shown(), "Satz 11 von 100  ·  0:06");
}

TEST_F(ReadingProgressTest, ShowsOnlyWhatIsNew) {
  Read(Sentences(3));
  Hear("Wort0");
  Hear("gilt");
  EXPECT_EQ(bar.times, 1);
}

TEST_F(ReadingProgressTest, VanishesWhenNothingIsReadAnyMore) {
  Read(Sentences(3));
  Hear("Wort0");
  speech.Stop();
  EXPECT_EQ(Shown(), "-");
}

TEST_F(ReadingProgressTest, GoesToTheSentenceThatWasChosen) {
  Read(Sentences(20));
  Hear("Wort1");
  bar.choose(13);
  EXPECT_EQ(FromCharacter(voice.SpokenText(), 0).substr(0, 6), "Wort12");
  EXPECT_EQ(voice2.SpokenText().substr(0, 6), " Wort0");
  bar.choose(0);
  bar.choose(99);
  Hear("Wort12");
  EXPECT_EQ(bar.shown->sentence, 13U);
}

TEST_F(ReadingProgressTest, CountsInTheDocumentWhereverReadingBegins) {
  document.text = Sentences(20);
  speech.ReadFrom(12 * 5);
  Hear("Wort5");
  EXPECT_EQ(bar.shown->sentence, 6U);
  EXPECT_EQ(bar.shown->sentences, 20U);
  EXPECT_TRUE(progress.ReadsToTheEnd());
  bar.choose(3);
  EXPECT_EQ(voice.SpokenText().substr(0, 6), " Wort2");
  Hear("Wort2");
  EXPECT_EQ(bar.shown->sentence, 3U);
}

TEST_F(ReadingProgressTest, CountsASentenceOnceInWhichReadingBegins) {
  document.text = "Erster Satz. Zweiter langer Satz. Dritter.";
  speech.ReadFrom(21);
  Hear("langer");
  EXPECT_EQ(bar.shown->sentence, 2U);
  EXPECT_EQ(bar.shown->sentences, 3U);
  Hear("Dritter");
  EXPECT_EQ(bar.shown->sentence, 3U);
  bar.choose(1);
  EXPECT_EQ(voice.SpokenText(), " Erster Satz. Zweiter langer Satz. Dritter. ");
}

TEST_F(ReadingProgressTest, CountsASelectionByItself) {
  document.text = "Eins gilt. Zwei gilt. Drei gilt. Vier gilt.";
  document.selectionStart = 11;
  document.selectionBytes = 21;
  speech.ReadSelection();
  Hear("Drei");
  EXPECT_EQ(bar.shown->sentence, 2U);
  EXPECT_EQ(bar.shown->sentences, 2U);
  EXPECT_FALSE(progress.ReadsToTheEnd());
}

TEST_F(ReadingProgressTest, CountsALongTextBesideTheWindow) {
  Read(Sentences(20000));
  progress.FinishFinding();
  Hear("Wort1");
  EXPECT_EQ(bar.shown->sentences, 20000U);
  bar.choose(19000);
  EXPECT_EQ(voice.SpokenText().substr(0, 9), "Wort18999");
}

TEST_F(ReadingProgressTest, AbandonsTheCountWithTheReading) {
  Read(Sentences(20000));
  speech.Stop();
  Read("Kurz.");
  Hear("Kurz");
  EXPECT_EQ(bar.shown->sentences, 1U);
}

TEST(TimeOfReading, IsToldShortly) {
  EXPECT_EQ(TimeGone(seconds(0)), "0:00");
  EXPECT_EQ(TimeGone(seconds(62)), "1:02");
  EXPECT_EQ(TimeGone(seconds(3753)), "1:02:33");
  EXPECT_EQ(TimeLeft(seconds(0)), "0 s");
  EXPECT_EQ(TimeLeft(seconds(42)), "50 s");
  EXPECT_EQ(TimeLeft(seconds(51)), "1 min");
  EXPECT_EQ(TimeLeft(seconds(61)), "2 min");
  EXPECT_EQ(TimeLeft(seconds(7500)), "2 h 5 min");
}

}  // namespace
}  // namespace lorelin
