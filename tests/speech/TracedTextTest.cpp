#include "speech/TracedText.h"

#include <gtest/gtest.h>

#include "base/textEncoding.h"
#include "speech/wordAlignment.h"

namespace lorelin {
namespace {

std::string Cut(std::string_view text, CharacterRange range) {
  const std::string_view begin = FromCharacter(text, range.begin);
  return std::string(begin.substr(0, begin.size() - FromCharacter(text, range.end).size()));
}

CharacterRange PlaceOf(std::string_view text, std::string_view word) {
  const std::size_t at = text.find(word);
  EXPECT_NE(at, std::string_view::npos) << word;
  const std::size_t begin = CountCharacters(text.substr(0, at));
  return {begin, begin + CountCharacters(word)};
}

// What of the document lights while the word is spoken; "-" for nothing.
std::string Written(const TracedText& text, std::string_view document, std::string_view word) {
  const auto range = text.Source(PlaceOf(text.Text(), word));
  return range ? Cut(document, *range) : "-";
}

TEST(TracedText, IsWhereItStandsInTheDocument) {
  const std::string document = "Größe: vier Äpfel";
  const TracedText text("vier Äpfel", 7);
  EXPECT_EQ(Written(text, document, "Äpfel"), "Äpfel");
}

TEST(TracedText, OfNoDocumentHasNoSource) {
  EXPECT_FALSE(TracedText("vier", std::nullopt).Source({0, 4}).has_value());
}

TEST(TracedText, WhatIsPutAroundItHasNoSource) {
  const std::string document = "Guten Tag";
  TracedText text(document, 0);
  text.Surround("Achtung! ", " Ende.");
  EXPECT_EQ(text.Text(), "Achtung! Guten Tag Ende.");
  EXPECT_EQ(Written(text, document, "Achtung"), "-");
  EXPECT_EQ(Written(text, document, "Guten"), "Guten");
  EXPECT_EQ(Written(text, document, "Tag"), "Tag");
  EXPECT_EQ(Written(text, document, "Ende"), "-");
}

TEST(TracedText, APlaceholderLightsWhileItsValueIsSpoken) {
  const std::string document = "Es ist $Zeit[h] Uhr $Zeit[m], also $Zeit[h].";
  TracedText text(document, 0);
  text.Surround("So: ", " ");
  text.Replace("$Zeit[h]", "14");
  text.Replace("$Zeit[m]", "5");
  EXPECT_EQ(text.Text(), "So: Es ist 14 Uhr 5, also 14. ");
  EXPECT_EQ(Written(text, document, "14"), "$Zeit[h]");
  EXPECT_EQ(Written(text, document, "Uhr"), "Uhr");
  EXPECT_EQ(Written(text, document, "5"), "$Zeit[m]");
  EXPECT_EQ(Written(text, document, "also"), "also");
}

TEST(TracedText, AroundWhatAnExtensionWroteTheWordsStayThemselves) {
  const std::string document = "Wir haben z. B. Äpfel und usw. im Haus.";
  TracedText text(document, 0);
  text.Rewritten("Wir haben zum Beispiel Äpfel und und so weiter im Haus.");
  text.Surround(" ", " ");
  EXPECT_EQ(Written(text, document, "haben"), "haben");
  EXPECT_EQ(Written(text, document, "zum"), "z. B.");
  EXPECT_EQ(Written(text, document, "Beispiel"), "z. B.");
  EXPECT_EQ(Written(text, document, "Äpfel"), "Äpfel");
  EXPECT_EQ(Written(text, document, "weiter"), "usw.");
  EXPECT_EQ(Written(text, document, "Haus"), "Haus");
}

TEST(TracedText, WhatAnExtensionPutInHasNoSource) {
  const std::string document = "Eins zwei";
  TracedText text(document, 0);
  text.Rewritten("Eins nämlich zwei");
  EXPECT_EQ(Written(text, document, "nämlich"), "-");
  EXPECT_EQ(Written(text, document, "zwei"), "zwei");
}

TEST(TracedText, WhatAnExtensionLeftOutIsPassedOver) {
  const std::string document = "Eins [Fußnote] zwei drei";
  TracedText text(document, 0);
  text.Rewritten("Eins zwei drei");
  EXPECT_EQ(Written(text, document, "Eins"), "Eins");
  EXPECT_EQ(Written(text, document, "zwei"), "zwei");
}

TEST(TracedText, FindsWhereAPlaceOfTheDocumentIsSpoken) {
  TracedText text("Wir haben z. B. Äpfel.", 10);
  text.Rewritten("Wir haben zum Beispiel Äpfel.");
  text.Surround("Los! ", " ");
  EXPECT_EQ(text.SpokenFrom(10), 5U);
  EXPECT_EQ(text.SpokenFrom(14), 9U);
  EXPECT_EQ(text.SpokenFrom(22), 15U);
  EXPECT_EQ(text.SpokenFrom(26), PlaceOf(text.Text(), "Äpfel").begin);
  EXPECT_EQ(text.SpokenFrom(0), 5U);
}

TEST(AlignWords, FindsNoDifferenceInTheSameText) {
  EXPECT_TRUE(AlignWords("Ein Text", "Ein Text").empty());
  EXPECT_TRUE(AlignWords("", "").empty());
}

TEST(AlignWords, OfWhollyDifferentTextsIsOneRun) {
  EXPECT_EQ(AlignWords("a b", "c d e"), (std::vector<SpokenRun>{{0, 5, 0, 3}}));
  EXPECT_EQ(AlignWords("", "c d"), (std::vector<SpokenRun>{{0, 3, 0, 0}}));
}

std::string Prose(std::size_t words, std::size_t leaveOutFrom, std::size_t leaveOutTo) {
  std::string text;
  for (std::size_t i = 0; i < words; ++i) {
    if (i < leaveOutFrom || i >= leaveOutTo)
      text += "w" + std::to_string(i % 997) + (i % 40 == 0 ? "\n" : " ");
  }
  return text;
}

TEST(AlignWords, FindsItsWayBehindALongPassageThatWasLeftOut) {
  const std::string before = Prose(20000, 0, 0);
  const std::string after = Prose(20000, 5000, 5400);
  const auto runs = AlignWords(before, after);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_EQ(Cut(before, WrittenRange(runs, PlaceOf(after, "w408 "))), "w408 ");
  EXPECT_EQ(runs[0].spokenEnd - runs[0].spokenBegin, 0U);
}

TEST(AlignWords, TakesLittleMemoryForProse) {
  std::string before;
  std::string after;
  for (int i = 0; i < 3000; ++i) {
    before +=
        "Er kaufte gestern im Laden an der Ecke Brot, Käse, Milch usw. und ging danach langsam wieder heim, "
        "weil es schon dunkel geworden war.\n";
    after +=
        "Er kaufte gestern im Laden an der Ecke Brot, Käse, Milch und so weiter und ging danach langsam "
        "wieder heim, weil es schon dunkel geworden war.\n";
  }
  const auto runs = AlignWords(before, after);
  EXPECT_EQ(runs.size(), 3000U);
  EXPECT_LE(runs.size() * sizeof(SpokenRun), before.size() / 4);
}

}  // namespace
}  // namespace lorelin
