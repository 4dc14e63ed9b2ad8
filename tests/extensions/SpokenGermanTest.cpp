#include "extensions/german/spokenGerman.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "extensions/german/numberWords.h"

namespace lorelin {
namespace {

struct Sentence {
  std::string file;
  std::string written;
  std::string spoken;
};

std::vector<Sentence> Sentences() {
  std::vector<Sentence> sentences;
  for (const auto& entry : std::filesystem::directory_iterator(LORELIN_SENTENCES)) {
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);) {
      const auto tab = line.find('\t');
      if (tab != std::string::npos) {
        sentences.push_back({entry.path().filename().string(), line.substr(0, tab), line.substr(tab + 1)});
      }
    }
  }
  return sentences;
}

TEST(SpokenGermanTest, ReadsSentencesAsAPersonWould) {
  const auto sentences = Sentences();
  EXPECT_GE(sentences.size(), 300U);
  for (const Sentence& one : sentences)
    EXPECT_EQ(SpokenGerman(one.written), one.spoken) << one.file << ": " << one.written;
}

TEST(SpokenGermanTest, PrefersTheUsersOwnWords) {
  const WordList own =
      ParseWordList("# meine\nVBG = Verwaltungsberufsgenossenschaft\n\nDr. = Doc\r\nkaputt\n=x\n");
  ASSERT_EQ(own.size(), 2U);
  EXPECT_EQ(SpokenGerman("Dr. X von der VBG, nicht VBGs", own),
            "Doc X von der Verwaltungsberufsgenossenschaft, nicht VBGs");
}

TEST(SpokenGermanTest, LeavesAnyBytesThatAreNoText) {
  const std::string bytes("\xFF\xC3 \0\x80 \xE2\x80 5\xC2", 12);
  EXPECT_EQ(SpokenGerman(bytes), bytes);
  EXPECT_EQ(SpokenGerman(""), "");
}

TEST(SpokenGermanTest, CountsInGerman) {
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

TEST(SpokenGermanTest, EndsWithALongText) {
  std::string text;
  while (text.size() < 1'000'000) text += "Am 3.10.2026 um 20:15 Uhr, z. B. 5,50 € oder 0711 1234567 usw. ";
  EXPECT_GT(SpokenGerman(text).size(), text.size());
  EXPECT_EQ(SpokenGerman(std::string(1'000'000, '9')), std::string(1'000'000, '9'));
  std::string zeros;
  while (zeros.size() < 1'000'000) zeros += "0 ";
  EXPECT_FALSE(SpokenGerman(zeros).empty());
  EXPECT_EQ(SpokenGerman(std::string(1'000'000, ' ')), std::string(1'000'000, ' '));
}

}  // namespace
}  // namespace lorelin
