#include "engine/wordMarks.h"
#include "tests/support/espeakLibrary.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/textEncoding.h"
#include "engine/EspeakSynthesizer.h"

namespace lorelin::engine {
namespace {

struct Told {
  std::vector<WordMark> marks;
  WordMarker::Take Take() {
    return [this](const WordMark& mark) { marks.push_back(mark); };
  }
};

// The words at the marks, one behind the other.
std::string MarkedWords(std::string_view text, const std::vector<WordMark>& marks) {
  std::string words;
  for (const WordMark& mark : marks) {
    const std::string_view begin = FromCharacter(text, mark.begin);
    const std::string_view end = FromCharacter(text, mark.end);
    if (!words.empty()) words += '|';
    words += begin.substr(0, begin.size() - end.size());
  }
  return words;
}

TEST(WordMarker, TellsTheWordThatAnEventStandsIn) {
  Told told;
  WordMarker marker("Guten Tag, Welt.");
  marker.Event(0, 0, told.Take());
  marker.Event(7, 500, told.Take());
  marker.Event(11, 900, told.Take());
  EXPECT_EQ(told.marks, (std::vector<WordMark>{{0, 0, 5}, {500, 6, 9}, {900, 11, 15}}));
}

TEST(WordMarker, GivesWordsThatArePassedOverTheirShareOfTheTime) {
  Told told;
  WordMarker marker("ab cd ef gh");
  marker.Event(0, 0, told.Take());
  marker.Event(9, 900, told.Take());
  EXPECT_EQ(told.marks, (std::vector<WordMark>{{0, 0, 2}, {300, 3, 5}, {600, 6, 8}, {900, 9, 11}}));
}

TEST(WordMarker, GivesWordsBehindTheLastEventTheRest) {
  Told told;
  WordMarker marker("ab cd");
  marker.Event(0, 100, told.Take());
  marker.End(300, told.Take());
  EXPECT_EQ(told.marks, (std::vector<WordMark>{{100, 0, 2}, {200, 3, 5}}));
}

TEST(WordMarker, NeverGoesBack) {
  Told told;
  WordMarker marker("ab cd ef");
  marker.Event(3, 100, told.Take());
  marker.Event(0, 200, told.Take());
  marker.Event(4, 300, told.Take());
  marker.Event(6, 400, told.Take());
  EXPECT_EQ(MarkedWords("ab cd ef", told.marks), "ab|cd|ef");
  EXPECT_EQ(told.marks.back().sample, 400U);
}

TEST(WordMarker, TakesNoBlankForAWord) {
  Told told;
  WordMarker marker("ab cd");
  marker.Event(2, 100, told.Take());
  marker.Event(5, 200, told.Take());
  EXPECT_TRUE(told.marks.empty());
}

TEST(WordMarker, LeavesOutTheSignsAroundAWord) {
  const std::string text = "(„Öko-Anbau“) – 5 % … & »so« 😀";
  Told told;
  WordMarker marker(text);
  marker.End(100, told.Take());
  EXPECT_EQ(MarkedWords(text, told.marks), "Öko-Anbau|5|%|&|so|😀");
}

TEST(WordMarker, HasNothingToTellOfSignsAlone) {
  Told told;
  WordMarker marker(" – … \n");
  marker.Event(0, 0, told.Take());
  marker.End(100, told.Take());
  EXPECT_TRUE(told.marks.empty());
}

TEST(DroppedCharacters, CountAgain) {
  const DroppedCharacters dropped(
      "\x01"
      "a\x02\x03"
      "b\xFF"
      "c");
  EXPECT_EQ(dropped.Given(0), 1U);
  EXPECT_EQ(dropped.Given(1), 4U);
  EXPECT_EQ(dropped.Given(2), 5U);
  EXPECT_EQ(dropped.Given(3), 6U);
}

class RealWords : public testing::Test {
 protected:
  std::string Spoken(std::string_view text) {
    told.marks.clear();
    samples = 0;
    Library().Speak(
        text,
        [this](std::span<const std::int16_t> block) {
          samples += block.size();
          return true;
        },
        told.Take());
    return MarkedWords(text, told.marks);
  }
  static Synthesizer& Library() {
    static EspeakSynthesizer synthesizer(TheEspeakLibrary());
    return synthesizer;
  }
  bool InOrder() const {
    for (std::size_t i = 1; i < told.marks.size(); ++i) {
      if (told.marks[i].sample < told.marks[i - 1].sample) return false;
    }
    return told.marks.empty() || told.marks.back().sample <= samples;
  }

  Told told;
  std::uint64_t samples = 0;
};

TEST_F(RealWords, ComeOnceAndInOrderWhateverTheLibraryTells) {
  EXPECT_EQ(Spoken("Es kostet 3,5 Prozent und 1.234.567 Euro. Ende gut."),
            "Es|kostet|3,5|Prozent|und|1.234.567|Euro|Ende|gut");
  EXPECT_TRUE(InOrder());
  EXPECT_EQ(Spoken("Das ist Öko-Anbau, sagt „Bio“ im Dorf – und (vielleicht) mehr …"),
            "Das|ist|Öko-Anbau|sagt|Bio|im|Dorf|und|vielleicht|mehr");
  EXPECT_TRUE(InOrder());
}

TEST_F(RealWords, GoOnBehindTheEndOfAPiece) {
  EXPECT_EQ(Spoken("Erster Absatz.\n\nZweiter Ölabsatz.\n\nDritter."),
            "Erster|Absatz|Zweiter|Ölabsatz|Dritter");
  EXPECT_TRUE(InOrder());
  EXPECT_GT(told.marks[2].sample, 0U);
}

}  // namespace
}  // namespace lorelin::engine
