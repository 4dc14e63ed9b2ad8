#include "engine/phonemes.h"

#include <gtest/gtest.h>

#include "base/textEncoding.h"
#include "tests/support/espeakLibrary.h"

namespace lorelin::engine {
namespace {

std::vector<Clause> Clauses(const std::string& text, const std::string& voice = "de") {
  Phonemizer phonemizer(TheEspeakLibrary(), voice, text);
  std::vector<Clause> clauses;
  while (auto clause = phonemizer.Next()) clauses.push_back(std::move(*clause));
  return clauses;
}

std::string Text(const std::u32string& symbols) {
  std::string text;
  for (const char32_t symbol : symbols) AppendUtf8(text, symbol);
  return text;
}

// "0:Guten 6:Tag": where each known word begins, and the first sounds there.
std::string ClauseWords(const Clause& clause) {
  std::string words;
  for (const WordStart& word : clause.words) {
    words += (words.empty() ? "" : " ") + std::to_string(word.character) + ":" +
             Text(clause.symbols.substr(word.symbol, 3));
  }
  return words;
}

TEST(Phonemes, ComeClauseByClauseWithTheirSigns) {
  const auto clauses = Clauses("Guten Tag, Herr Müller! Wie geht es „Ihnen?“ Gut");
  ASSERT_EQ(clauses.size(), 4U);
  EXPECT_EQ(Text(clauses[0].symbols), "ɡˈuːtən tˈɑːk");
  EXPECT_EQ(clauses[0].sign, U',');
  EXPECT_FALSE(clauses[0].endsSentence);
  EXPECT_EQ(clauses[1].sign, U'!');
  EXPECT_TRUE(clauses[1].endsSentence);
  EXPECT_EQ(clauses[2].sign, U'?');
  EXPECT_EQ(clauses[3].sign, U'.');
  EXPECT_TRUE(clauses[3].endsSentence);
}

TEST(Phonemes, KnowWhereTheirWordsStand) {
  const auto clauses = Clauses("Guten Tag, Müller! Öl");
  ASSERT_EQ(clauses.size(), 3U);
  EXPECT_EQ(ClauseWords(clauses[0]), "0:ɡˈu 6:tˈɑ");
  EXPECT_EQ(ClauseWords(clauses[1]), "11:mˈy");
  EXPECT_EQ(ClauseWords(clauses[2]), "19:ˈøː");
}

TEST(Phonemes, FindWordsBehindNumbersAndDashes) {
  const auto clauses = Clauses("Im Jahr 1984 sind es – nicht „wahr“ - 3,5.");
  ASSERT_EQ(clauses.size(), 2U);
  EXPECT_EQ(ClauseWords(clauses[0]), "0:ɪm  3:jˈɑ 8:ˈaɪ 13:zɪn 18:ɛs");
  EXPECT_EQ(ClauseWords(clauses[1]), "23:nˈɪ 29:vˈɑ 38:dɾˈ");
}

TEST(Phonemes, AreDecomposedAndWithoutMarksOfLanguages) {
  EXPECT_EQ(Symbols("(en)kəm(de)çã "), std::u32string(U"kəmc\u0327a\u0303"));
  EXPECT_EQ(Symbols("(x y"), U"(x y");
  EXPECT_EQ(Decomposed(U'x'), U"x");
}

TEST(Phonemes, OfNothingAreNone) {
  EXPECT_TRUE(Clauses("").empty());
  EXPECT_TRUE(Clauses("   \n\n ").empty());
  EXPECT_TRUE(Clauses("...").empty());
  EXPECT_TRUE(Clauses("Guten Tag", "gibt-es-nicht").empty());
}

TEST(Phonemes, OfNastyTextsEnd) {
  for (const std::string& text :
       {std::string(4000, 'x'), std::string(3000, '7'), std::string("?!,;:-()[]{}<>"),
        std::string("[[x]] <b>&amp;</b>"), std::string("🎉🎉 e\u0301\u0327")})
    (void)Clauses(text);
}

}  // namespace
}  // namespace lorelin::engine
