#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "german/spokenGerman.h"

namespace lorelin {
namespace {

// Words that look as if something were cut from them: names, plurals, genitives. Behind each a sentence ends,
// and a number begins the next one, where "Rechn. 3" would go on.
TEST(WholeWordsTest, AreNeverCompleted) {
  std::ifstream words(LORELIN_WHOLE_WORDS);
  int count = 0;
  for (std::string word; std::getline(words, word); ++count) {
    EXPECT_EQ(SpellOut("Es war " + word + ". 3 Kinder kamen.").text,
              "Es war " + word + ". Drei Kinder kamen.");
    EXPECT_EQ(SpellOut("Es war " + word + ". Das war gut.").text, "Es war " + word + ". Das war gut.");
  }
  EXPECT_GT(count, 800);
}

TEST(WholeWordsTest, AreToldFromCutOnes) {
  EXPECT_EQ(SpellOut("Laut Rechn. 3 sind es zwei.").text, "Laut Rechnung drei sind es zwei.");
  EXPECT_EQ(SpellOut("In der Goethestr. 5 wohnt er.").text, "In der Goethestraße fünf wohnt er.");
  EXPECT_EQ(SpellOut("Die Krankenvers. 2010 war teuer.").text,
            "Die Krankenversicherung zweitausendzehn war teuer.");
  EXPECT_EQ(SpellOut("Max. 3 Kinder dürfen mit.").text, "Maximal drei Kinder dürfen mit.");
  EXPECT_EQ(SpellOut("Gestern kam Max. 3 Kinder waren dabei.").text,
            "Gestern kam Max. Drei Kinder waren dabei.");
}

TEST(WholeWordsTest, StandAloneBeforeANumber) {
  for (const std::string word :
       {"Richtig", "Falsch", "Fertig", "Bereit", "Endlich", "Gesund", "Frei", "Aktiv"})
    EXPECT_EQ(SpellOut(word + ". 3 Kinder kamen.").text, word + ". Drei Kinder kamen.");
}

// At the end of a sentence these are no other word, whatever stands before them.
TEST(WholeWordsTest, EndSentences) {
  for (const std::string word :
       {"intern",       "bisher",   "derzeit",   "einst",   "so",      "Tages",       "Dir",
        "Span",         "Vers",     "Mob",       "Part",    "Term",    "Kommiss",     "Lichtmess",
        "Kontokorrent", "Heilbutt", "Paperback", "Öldruck", "Ölstand", "Hirngespinst"}) {
    EXPECT_EQ(SpellOut("Das war immer " + word + ".").text, "Das war immer " + word + ".");
    EXPECT_EQ(SpellOut("Er sprach von der " + word + ". Danach ging er.").text,
              "Er sprach von der " + word + ". Danach ging er.");
  }
  for (const std::string word : {"gibt's", "LKW's", "McDonald's", "entgeh'n"})
    EXPECT_EQ(SpellOut("Das " + word + ". Danach ging er.").text, "Das " + word + ". Danach ging er.");
}

}  // namespace
}  // namespace lorelin
