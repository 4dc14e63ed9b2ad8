#include <gtest/gtest.h>

#include "german/nouns.h"
#include "german/numberWords.h"
#include "german/ownWords.h"
#include "german/textRules.h"

namespace lorelin {
namespace {

TEST(NumberWordsTest, CountInGerman) {
  EXPECT_EQ(CardinalWords(0), "null");
  EXPECT_EQ(CardinalWords(1), "eins");
  EXPECT_EQ(CardinalWords(17), "siebzehn");
  EXPECT_EQ(CardinalWords(71), "einundsiebzig");
  EXPECT_EQ(CardinalWords(101), "einhunderteins");
  EXPECT_EQ(CardinalWords(1001), "eintausendeins");
  EXPECT_EQ(CardinalWords(21021), "einundzwanzigtausendeinundzwanzig");
  EXPECT_EQ(CardinalWords(2'000'001), "zwei Millionen eins");
  EXPECT_EQ(CardinalWords(1'001'000'000), "eine Milliarde eine Million");
  EXPECT_EQ(OrdinalWords(1, "e"), "erste");
  EXPECT_EQ(OrdinalWords(3, "en"), "dritten");
  EXPECT_EQ(OrdinalWords(7, "er"), "siebter");
  EXPECT_EQ(OrdinalWords(19, "e"), "neunzehnte");
  EXPECT_EQ(OrdinalWords(20, "e"), "zwanzigste");
  EXPECT_EQ(OrdinalWords(101, "e"), "einhunderterste");
  EXPECT_EQ(YearWords(1900), "neunzehnhundert");
  EXPECT_EQ(RomanValue("MCMXCIV"), 1994U);
  EXPECT_EQ(RomanValue("IIII"), 0U);
}

TEST(NounsTest, KnowGenderAndNumber) {
  EXPECT_EQ(NounOf("Tasse").gender, Gender::Feminine);
  EXPECT_EQ(NounOf("Tag").gender, Gender::Masculine);
  EXPECT_TRUE(NounOf("Tassen").plural);
  EXPECT_FALSE(NounOf("Tassen").singular);
  EXPECT_TRUE(NounOf("Fehlers").genitive);
  for (const std::string word :
       {"Halle", "Sporthalle", "Platte", "Tischplatte", "Breite", "Tiefe",       "Reichweite",
        "Ebene", "Spitze",     "Kohle",  "Montage",     "Akte",   "Lebensweise", "Schranke",
        "Weste", "Herde",      "Sekte",  "Reife",       "Marke",  "Rinde",       "Terrine",
        "Falle", "Fahrweise",  "Schale", "Trance",      "Matte"})
    EXPECT_EQ(NounOf(word).gender, Gender::Feminine) << word;
  for (const std::string word : {"Gebäude", "Auge", "Ende", "Interesse", "Gemüse", "Update"})
    EXPECT_EQ(NounOf(word).gender, Gender::Neuter) << word;
  for (const std::string word : {"Kunde", "See", "Junge", "Kollege", "Name", "Käse", "Dachs"})
    EXPECT_EQ(NounOf(word).gender, Gender::Masculine) << word;
  EXPECT_FALSE(NounOf("Feste").singular) << "the old plural, not who is firm";
  EXPECT_FALSE(NounOf("es").known) << "a genitive's ending with nothing before it";
}

TEST(NounsTest, KnowCompoundsByTheirLastPart) {
  const Noun noun = NounOf("Dachgeschoss");
  EXPECT_TRUE(noun.known);
  EXPECT_FALSE(noun.whole);
  EXPECT_EQ(noun.gender, Gender::Neuter);
}

TEST(NounsTest, GuessByTheEnding) {
  EXPECT_TRUE(NounOf("Xyzheit").known || NounOf("Xyzheit").guessed);
  EXPECT_EQ(NounOf("Qwrtzung").gender, Gender::Feminine);
  EXPECT_FALSE(NounOf("Qx").known);
}

TEST(OwnWordsTest, AreReadFromLines) {
  const WordList list = ParseWordList("\xEF\xBB\xBF# meine\nA = b\r\n\nkaputt\n=x\nLang* = l\n~Egal = e\n");
  const WordList wanted{{"Lang", "l", false, true}, {"Egal", "e", true, false}, {"A", "b", true, true}};
  EXPECT_EQ(list, wanted);
  for (const OwnWord& word : wanted) EXPECT_EQ(ParseWordList(WordListLine(word)), WordList{word});
}

std::string Ruled(const std::string& pattern, const std::string& replacement, std::string_view text) {
  return TextRules(std::vector<TextRule>{{pattern, replacement}}).Apply(text).text;
}

TEST(TextRulesTest, ReplaceWhatTheyFind) {
  EXPECT_EQ(Ruled(R"(\[.*?\])", "", "a [b] c [d] e"), "a  c  e");
  EXPECT_EQ(Ruled(R"(\[.*\])", "", "a [b] c [d] e"), "a  e");
  EXPECT_EQ(Ruled("(\\w+)@(\\w+)", "$2 von $1", "ich@hier"), "hier von ich");
  EXPECT_EQ(Ruled("x{2,3}", "-", "x xx xxx xxxx"), "x - - -x");
  EXPECT_EQ(Ruled("a|bc|d", "_", "abcd"), "___");
  EXPECT_EQ(Ruled("^> ?", "", "> a\n> b"), "a\nb");
  EXPECT_EQ(Ruled("\\bän", "Än", "ändern, verändern"), "Ändern, verändern");
  EXPECT_EQ(Ruled("[^a-c]+", "", "abxyc"), "abc");
  EXPECT_EQ(Ruled("x*", "-", "axxb"), "a-b");
  EXPECT_EQ(Ruled("(?:ab)+?", "-", "abab"), "--");
}

TEST(TextRulesTest, TellWhatIsWrongWithAPattern) {
  EXPECT_EQ(TextRules::WhatIsWrongWith("a(b"), "Eine Klammer ist nicht geschlossen.");
  EXPECT_EQ(TextRules::WhatIsWrongWith("[a"), "Eine eckige Klammer ist nicht geschlossen.");
  EXPECT_EQ(TextRules::WhatIsWrongWith("*a"), "Vor einem Zeichen für Wiederholungen steht nichts.");
  EXPECT_EQ(TextRules::WhatIsWrongWith("a)"), "Eine schließende Klammer hat keine öffnende.");
  EXPECT_EQ(TextRules::WhatIsWrongWith("((a|b)*c){2}"), "");
  EXPECT_TRUE(TextRules(std::vector<TextRule>{{"(", "x"}}).IsEmpty());
}

TEST(TextRulesTest, AreSafeWithPatternsThatRunAway) {
  EXPECT_EQ(Ruled("(a*)*b", "-", std::string(3000, 'a')), std::string(3000, 'a'));
  EXPECT_FALSE(TextRules::WhatIsWrongWith("((a{100}){100}){100}").empty());
}

TEST(TextRulesTest, TellTheirRuns) {
  const std::vector<SpokenRun> wanted{{1, 3, 1, 2}, {4, 4, 3, 5}};
  const SpokenText spoken = TextRules(std::vector<TextRule>{{"ß", "ss"}, {"xx", ""}}).Apply("aßbxx");
  EXPECT_EQ(spoken.text, "assb");
  EXPECT_EQ(spoken.runs, wanted);
}

TEST(SpokenTextTest, JoinsTheRunsOfTwoSteps) {
  // "a5b" to "afünfb" to "aFÜNF!b"
  const std::vector<SpokenRun> first{{1, 5, 1, 2}};
  const std::vector<SpokenRun> second{{2, 6, 2, 5}};
  EXPECT_EQ(JoinRuns(first, second), (std::vector<SpokenRun>{{1, 6, 1, 2}}));
  // Two replacements in what had been one, the second at its end: "12" to "zwölf" to "Zwölb".
  EXPECT_EQ(JoinRuns({{0, 5, 0, 2}}, {{0, 1, 0, 1}, {4, 5, 4, 5}}), (std::vector<SpokenRun>{{0, 5, 0, 2}}));
  EXPECT_EQ(JoinRuns({{0, 5, 0, 2}}, {{0, 2, 0, 1}, {3, 3, 2, 3}}), (std::vector<SpokenRun>{{0, 5, 0, 2}}));
  EXPECT_EQ(JoinRuns({}, second), second);
  EXPECT_EQ(JoinRuns(first, {}), first);
  EXPECT_EQ(JoinRuns(first, {{6, 8, 5, 6}}), (std::vector<SpokenRun>{{1, 5, 1, 2}, {6, 8, 2, 3}}));
}

}  // namespace
}  // namespace lorelin
