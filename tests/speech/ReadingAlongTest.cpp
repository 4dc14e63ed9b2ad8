#include "speech/ReadingAlong.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "base/contrast.h"
#include "base/textEncoding.h"
#include "speech/ViewFollowing.h"
#include "speech/markColours.h"
#include "tests/support/FakeReadingMarks.h"
#include "tests/support/SpeechFixture.h"

namespace lorelin {
namespace {

class ReadingAlongTest : public SpeechFixture {
 protected:
  void Read(std::string_view text) {
    document.text = text;
    speech.SpeakToolbar();
  }
  // The engine comes to this word of what it was given.
  void Hear(std::string_view word) {
    const std::string& text = voice.SpokenText();
    const std::size_t at = text.find(word);
    ASSERT_NE(at, std::string::npos) << word << " in " << text;
    const std::size_t begin = CountCharacters(std::string_view(text).substr(0, at));
    voice.Hear({begin, begin + CountCharacters(word)});
  }
  std::string At(const std::optional<MarkedRange>& range) const {
    if (!range) return "-";
    const std::string_view begin = FromCharacter(document.text, range->begin);
    return std::string(begin.substr(0, begin.size() - FromCharacter(document.text, range->end).size()));
  }
  std::string Word() const { return At(marks.word); }
  std::string Sentence() const { return At(marks.sentence); }
  void Type(std::size_t place, std::string_view typed) {
    document.text.insert(document.text.size() - FromCharacter(document.text, place).size(), typed);
    marks.edited(place, 0, CountCharacters(typed));
  }

  FakeReadingMarks marks;
  ReadingAlong along{speech, marks, settings};
};

TEST_F(ReadingAlongTest, MarksTheWordThatIsHeardAndItsSentence) {
  Read("Guten Tag. Schöne Grüße, Welt!");
  EXPECT_EQ(Word(), "-");
  Hear("Guten");
  EXPECT_EQ(Word(), "Guten");
  EXPECT_EQ(Sentence(), "Guten Tag.");
  Hear("Grüße");
  EXPECT_EQ(Word(), "Grüße");
  EXPECT_EQ(Sentence(), "Schöne Grüße, Welt!");
}

TEST_F(ReadingAlongTest, MarksWhatIsWrittenNotWhatIsSpoken) {
  Read("Das kostet z. B. 5 EUR. Gut.");
  Hear("zum");
  EXPECT_EQ(Word(), "z. B.");
  Hear("Beispiel");
  EXPECT_EQ(Word(), "z. B.");
  Hear("Euro");
  EXPECT_EQ(Word(), "5 EUR");
  EXPECT_EQ(Sentence(), "Das kostet z. B. 5 EUR.");
}

TEST_F(ReadingAlongTest, MarksNothingForPrefixAndSuffix) {
  Set(setting::Prefix, "Achtung Achtung");
  Read("Guten Tag.");
  Hear("Achtung");
  EXPECT_EQ(Word(), "-");
  Hear("Tag");
  EXPECT_EQ(Word(), "Tag");
}

TEST_F(ReadingAlongTest, FindsTheWordsThatAFilterLeft) {
  RegisterFilter("Filter", [](const std::string&, std::optional<std::string> argument) {
    return argument ? std::optional("Nämlich " + *argument) : std::nullopt;
  });
  Read("Guten Tag.");
  Hear("Tag");
  EXPECT_EQ(Word(), "Tag");
}

TEST_F(ReadingAlongTest, CountsFromTheBeginningOfTheDocument) {
  document.text = "Äpfel und Öl. Mehr nicht.";
  document.selectionStart = 7;
  speech.ReadFromCursor();
  Hear("Öl");
  EXPECT_EQ(Word(), "Öl");
  document.selectionStart = 14;
  document.selectionBytes = 4;
  speech.ReadSelection();
  Hear("Mehr");
  EXPECT_EQ(Word(), "Mehr");
  EXPECT_EQ(Sentence(), "Mehr");
}

TEST_F(ReadingAlongTest, MarksNothingForATextThatIsNotTheDocuments) {
  document.text = "Guten Tag";
  EXPECT_EQ(Spoken("Guten Tag"), " Guten Tag ");
  Hear("Tag");
  EXPECT_EQ(Word(), "-");
  EXPECT_FALSE(along.IsReading());
}

TEST_F(ReadingAlongTest, EndsWithTheTextAndWithStop) {
  Read("Guten Tag.");
  Hear("Tag");
  voice.Finish();
  EXPECT_EQ(Word() + Sentence(), "--");
  Read("Guten Tag.");
  Hear("Tag");
  speech.Stop();
  EXPECT_EQ(Word() + Sentence(), "--");
  EXPECT_FALSE(along.IsReading());
}

TEST_F(ReadingAlongTest, EndsWhenTheEngineDies) {
  Read("Guten Tag.");
  Hear("Tag");
  voice.Finish({.complete = false, .reason = "weg"});
  EXPECT_EQ(Word() + Sentence(), "--");
}

TEST_F(ReadingAlongTest, StopPutsTheCaretWhereTheVoiceWas) {
  Read("Guten Tag.");
  Hear("Tag");
  along.Stop();
  EXPECT_EQ(marks.caret, std::optional<std::size_t>(6));
}

TEST_F(ReadingAlongTest, StopLeavesTheCaretWhenNothingWasHeard) {
  Read("Guten Tag.");
  along.Stop();
  EXPECT_FALSE(marks.caret.has_value());
}

TEST_F(ReadingAlongTest, TypingElsewhereMovesTheMarks) {
  Read("Guten Tag. Schöne Grüße.");
  Hear("Schöne");
  Type(0, "Oh, ");
  EXPECT_EQ(Word(), "Schöne");
  EXPECT_EQ(Sentence(), "Schöne Grüße.");
  Hear("Grüße");
  EXPECT_EQ(Word(), "Grüße");
}

TEST_F(ReadingAlongTest, WhatIsEditedItselfIsNotMarkedAnyMore) {
  Read("Guten Tag. Schöne Grüße. Ende.");
  Hear("Schöne");
  Type(13, "x");
  EXPECT_EQ(Word() + Sentence(), "--");
  Hear("Grüße");
  EXPECT_EQ(Word(), "Grüße");
  EXPECT_EQ(Sentence(), "-");
  Hear("Ende");
  EXPECT_EQ(Sentence(), "Ende.");
}

TEST_F(ReadingAlongTest, AnotherDocumentHasNoMarks) {
  Read("Guten Tag. Ende.");
  Hear("Tag");
  document.text = "Etwas ganz anderes.";
  marks.edited(0, 16, 0);
  marks.edited(0, 0, 19);
  EXPECT_EQ(Word() + Sentence(), "--");
  Hear("Ende");
  EXPECT_EQ(Word() + Sentence(), "--");
}

TEST_F(ReadingAlongTest, WantsToKnowOfEditsOnlyWhileItReads) {
  EXPECT_FALSE(marks.edited);
  Read("Guten Tag.");
  EXPECT_TRUE(marks.edited);
  voice.Finish();
  EXPECT_FALSE(marks.edited);
}

TEST_F(ReadingAlongTest, ShowsWhatIsWanted) {
  along.SetMode(FollowMode::Word);
  Read("Guten Tag. Ende.");
  Hear("Tag");
  EXPECT_EQ(Word() + "/" + Sentence(), "Tag/-");
  along.SetMode(FollowMode::Sentence);
  EXPECT_EQ(Word() + "/" + Sentence(), "-/Guten Tag.");
  along.SetMode(FollowMode::Off);
  EXPECT_EQ(Word() + "/" + Sentence(), "-/-");
  Hear("Ende");
  EXPECT_EQ(Word() + "/" + Sentence(), "-/-");
  along.SetMode(FollowMode::WordAndSentence);
  EXPECT_EQ(Word() + "/" + Sentence(), "Ende/Ende.");
}

TEST_F(ReadingAlongTest, RemembersWhatIsWanted) {
  along.SetMode(FollowMode::Sentence);
  EXPECT_EQ(FollowModeOf(settings.Get(setting::FollowMode)), FollowMode::Sentence);
  settings.Save(setting::FollowMode, "Unsinn");
  EXPECT_EQ(FollowModeOf(settings.Get(setting::FollowMode)), FollowMode::WordAndSentence);
}

using Steering = ReadingAlongTest;

TEST_F(Steering, GoesFromSentenceToSentence) {
  Read("Erster Satz. Zweiter Satz. Dritter Satz.");
  Hear("Erster");
  along.SentenceOn();
  EXPECT_EQ(voice.SpokenText(), "Zweiter Satz. Dritter Satz. ");
  Hear("Zweiter");
  EXPECT_EQ(Word(), "Zweiter");
  EXPECT_EQ(Sentence(), "Zweiter Satz.");
  along.SentenceOn();
  along.SentenceOn();
  EXPECT_EQ(voice.SpokenText(), "Dritter Satz. ");
  along.SentenceBack();
  along.SentenceBack();
  along.SentenceBack();
  EXPECT_EQ(voice.SpokenText(), "Erster Satz. Zweiter Satz. Dritter Satz. ");
}

TEST_F(Steering, RepeatsTheSentence) {
  Read("Erster Satz. Zweiter Satz.");
  Hear("Zweiter Satz");
  along.RepeatSentence();
  EXPECT_EQ(voice.SpokenText(), "Zweiter Satz. ");
}

TEST_F(Steering, GoesFromParagraphToParagraph) {
  Read("Eins. Zwei.\nDrei. Vier.\n\nFünf.");
  Hear("Vier");
  along.ParagraphBack();
  EXPECT_EQ(voice.SpokenText().substr(0, 5), "Drei.");
  along.ParagraphBack();
  EXPECT_EQ(voice.SpokenText().substr(0, 5), "Eins.");
  along.ParagraphOn();
  along.ParagraphOn();
  EXPECT_EQ(voice.SpokenText(), "Fünf. ");
  along.ParagraphOn();
  EXPECT_EQ(voice.SpokenText(), "Fünf. ");
}

TEST_F(Steering, LeavesTheRenderingAlone) {
  Read("Erster Satz. Zweiter Satz.");
  Hear("Erster");
  calls.Clear();
  along.SentenceOn();
  EXPECT_FALSE(calls.Has("Voice2.ResetAudio"));
  EXPECT_FALSE(calls.Has("Voice2.Speak"));
  EXPECT_EQ(voice2.SpokenText(), " Erster Satz. Zweiter Satz. ");
  EXPECT_TRUE(voice2.Speaking());
}

TEST_F(Steering, StaysPaused) {
  Read("Erster Satz. Zweiter Satz.");
  Hear("Erster");
  speech.PauseSpeech();
  calls.Clear();
  along.SentenceOn();
  EXPECT_EQ(calls.Entries().back(), "Voice.PauseAudio");
  EXPECT_TRUE(speech.Held());
}

TEST_F(Steering, SpeaksWithTheSpeedThatIsSetMeanwhile) {
  Read("Erster Satz. Zweiter Satz.");
  Hear("Zweiter Satz");
  Set(setting::Speed, "80");
  along.RepeatSentence();
  EXPECT_EQ(voice.Speed(), 80);
}

TEST_F(Steering, DoesNothingWhenNothingIsRead) {
  along.SentenceOn();
  along.ParagraphBack();
  along.RepeatSentence();
  EXPECT_FALSE(calls.Has("Voice.Speak"));
  EXPECT_FALSE(along.CanSteer());
}

TEST_F(Steering, IsPossibleFromTheFirstWordOn) {
  Read("Erster Satz. Zweiter Satz.");
  EXPECT_FALSE(along.CanSteer());
  Hear("Erster");
  EXPECT_TRUE(along.CanSteer());
  voice.Finish();
  EXPECT_FALSE(along.CanSteer());
}

TEST_F(Steering, ReadsFromAnyPlaceOfTheDocument) {
  document.text = "Äpfel und Öl.";
  speech.ReadFrom(10);
  EXPECT_EQ(voice.SpokenText(), " Öl. ");
  Hear("Öl");
  EXPECT_EQ(Word(), "Öl");
}

double Luminance(std::uint32_t colour) {
  const auto linear = [](std::uint32_t channel) {
    const double value = (channel & 0xFF) / 255.0;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour >> 16) + 0.7152 * linear(colour >> 8) + 0.0722 * linear(colour);
}

double Contrast(const MarkColour& colour) {
  const double ground = Luminance(colour.background) + 0.05;
  const double letters = Luminance(colour.foreground) + 0.05;
  return std::max(ground, letters) / std::min(ground, letters);
}

TEST(MarkColours, CanBeReadInBothThemes) {
  for (const bool dark : {false, true}) {
    EXPECT_GE(Contrast(GroundColoursFor(dark).word), 4.5) << dark;
    EXPECT_GE(Contrast(GroundColoursFor(dark).sentence), 4.5) << dark;
  }
}

TEST(MarkColours, CanBeReadAndSeenOnEveryGround) {
  for (std::uint32_t step = 0; step < 512; ++step) {
    const std::uint32_t ground = (step >> 6U) * 36 << 16U | (step >> 3U & 7U) * 36 << 8U | (step & 7U) * 36;
    const MarkColours colours = MarkColoursOn(ground);
    EXPECT_GE(Contrast(colours.word), 4.5) << std::hex << ground;
    EXPECT_GE(Contrast(colours.sentence), 4.5) << std::hex << ground;
    EXPECT_GE(ContrastOf(colours.word.background, ground), 1.5) << std::hex << ground;
    EXPECT_GE(ContrastOf(colours.sentence.background, ground), 1.1) << std::hex << ground;
    EXPECT_GE(ContrastOf(colours.word.background, colours.sentence.background), 1.3) << std::hex << ground;
  }
}

TEST(ViewFollowing, KeepsTheLineInTheMiddleThird) {
  ViewFollowing following;
  EXPECT_EQ(following.Follow({0, 20}, {0, 300}), std::nullopt);
  EXPECT_EQ(following.Follow({150, 20}, {0, 300}), std::nullopt);
  EXPECT_EQ(following.Follow({190, 20}, {0, 300}), std::optional(90));
  EXPECT_EQ(following.Follow({110, 20}, {90, 300}), std::optional(10));
}

TEST(ViewFollowing, BringsToTheTopWhatShowsNothingOfWhatFollows) {
  const ViewFollowing::Span view{100, 400};
  EXPECT_FALSE(ViewFollowing::BelongsToTop({100, 20}, view));
  EXPECT_FALSE(ViewFollowing::BelongsToTop({380, 20}, view));
  EXPECT_TRUE(ViewFollowing::BelongsToTop({390, 20}, view));
  EXPECT_TRUE(ViewFollowing::BelongsToTop({90, 20}, view));
  EXPECT_TRUE(ViewFollowing::BelongsToTop({900, 20}, view));
}

TEST(ViewFollowing, LeavesTheReaderAloneWhoHasScrolledAway) {
  ViewFollowing following;
  following.ReaderScrolled();
  EXPECT_EQ(following.Follow({1000, 20}, {0, 300}), std::nullopt);
  EXPECT_EQ(following.Follow({1020, 20}, {0, 300}), std::nullopt);
  following.Return();
  EXPECT_EQ(following.Follow({1020, 20}, {0, 300}), std::optional(920));
}

TEST(ViewFollowing, GoesOnWhenTheVoiceLeavesTheView) {
  ViewFollowing following;
  following.ReaderScrolled();
  EXPECT_EQ(following.Follow({270, 20}, {0, 300}), std::nullopt);
  EXPECT_EQ(following.Follow({290, 20}, {0, 300}), std::optional(190));
}

}  // namespace
}  // namespace lorelin
