#include "documents/longParagraphs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

std::string Words(std::size_t bytes) {
  std::string text;
  while (text.size() < bytes) text += "Größe und Übung. ";
  return text;
}

std::size_t LongestPiece(std::string_view shown) {
  std::size_t longest = 0;
  for (std::size_t begin = 0; begin < shown.size();) {
    const std::size_t end = std::min(shown.find_first_of("\r\n", begin), shown.size());
    longest = std::max(longest, end - begin);
    begin = end + 1;
  }
  return longest;
}

TEST(LongParagraphs, AreShownInPiecesThatAreNotLong) {
  const std::string shown = AsShown(Words(1'000'000)).text;
  EXPECT_GT(std::count(shown.begin(), shown.end(), kPieceEnd), 50);
  EXPECT_LE(LongestPiece(shown), kLongestParagraph / 2);
}

TEST(LongParagraphs, AreTheSameTextAsBefore) {
  const std::string text = "Kurz.\n" + Words(100'000) + "\n\n" + Words(50'000) + " \n" + Words(20'000);
  const std::string shown = AsShown(text).text;
  EXPECT_NE(shown, text);
  EXPECT_EQ(shown.size(), text.size());
  EXPECT_EQ(WithBlanks(shown), text);
}

TEST(LongParagraphs, EndTheirPiecesBehindSentencesWhereThereAreSome) {
  const std::string shown = AsShown(Words(100'000)).text;
  for (std::size_t at = shown.find(kPieceEnd); at != std::string::npos; at = shown.find(kPieceEnd, at + 1)) {
    EXPECT_EQ(shown[at - 1], '.');
  }
}

TEST(LongParagraphs, LeaveOtherTextsAlone) {
  const std::string text = Words(kLongestParagraph - 100) + "\n" + Words(kLongestParagraph - 100) + "\n";
  EXPECT_TRUE(IsShownAsItIs(text));
  EXPECT_EQ(AsShown(text).text, text);
  EXPECT_FALSE(IsShownAsItIs(Words(kLongestParagraph + 100)));
  EXPECT_TRUE(IsShownAsItIs(""));
}

TEST(LongParagraphs, RememberWhatTheirPiecesHideWhereThereAreNoBlanks) {
  std::string text;
  while (text.size() < 100'000) text += "äöüß";
  const ShownText shown = AsShown(text + "\n" + text);
  ASSERT_GT(shown.hidden.size(), 20U);
  EXPECT_LE(LongestPiece(shown.text), kLongestParagraph);
  std::string written = shown.text;
  for (const HiddenCharacter& hidden : shown.hidden) {
    const std::size_t at = written.size() - FromCharacter(written, hidden.position).size();
    ASSERT_EQ(written[at], kPieceEnd);
    written.replace(at, 1, hidden.character);
  }
  EXPECT_EQ(written, text + "\n" + text);
}

TEST(LongParagraphs, TakeForeignLineEndsForLineEnds) {
  EXPECT_FALSE(IsShownAsItIs("a\r\nb"));
  EXPECT_EQ(AsShown("a\r\nb\rc").text, "a\nb\nc");
}

}  // namespace
}  // namespace lorelin
