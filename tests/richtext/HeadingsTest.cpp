#include "richtext/chapters.h"

#include <gtest/gtest.h>

#include "richtext/rtf.h"

namespace lorelin {
namespace {

TEST(HeadingsTest, AreTheHeadingsOfAText) {
  const RichText text = ReadRtf(
      "{\\rtf1\\ansi \\pard\\outlinelevel0 \\'dcber \\b uns\\par\\pard Es war einmal.\\par"
      "\\pard\\outlinelevel1 Zwei  Dinge \\par\\pard Text\\par}");
  const std::vector<Chapter> expected{{"Über uns", 1, 0}, {"Zwei Dinge", 2, 24}};
  EXPECT_EQ(ChaptersOf(text), expected);
}

TEST(HeadingsTest, AreKeptByWritingAndReading) {
  const RichText text = ReadRtf("{\\rtf1 {\\outlinelevel2 Drei\\par}Text}");
  EXPECT_EQ(ChaptersOf(ReadRtf(WriteRtf(text))), (std::vector<Chapter>{{"Drei", 3, 0}}));
}

TEST(HeadingsTest, AreNoParagraphsWithoutLettersAndNoOrdinaryText) {
  EXPECT_TRUE(ChaptersOf(ReadRtf("{\\rtf1 \\outlinelevel0  \\par\\outlinelevel9 Text\\par}")).empty());
  EXPECT_TRUE(ChaptersOf(ReadRtf("{\\rtf1 Text}")).empty());
  EXPECT_TRUE(ChaptersOf({}).empty());
}

TEST(HeadingsTest, AreMadeOfTheParagraphsThatSayTheTitles) {
  RichText text;
  text.text = "Öl\nText\nZwei  Dinge\nDrei";
  text.paragraphs = {{1, {}}, {2, {.leftIndent = 20}}};
  const std::vector<Chapter> chapters{{"Öl", 1, 0}, {"Anders", 1, 3}, {"Zwei Dinge", 2, 8}};
  MarkHeadings(text, chapters);
  EXPECT_EQ(ChaptersOf(text), (std::vector<Chapter>{chapters[0], chapters[2]}));
  EXPECT_EQ(ChaptersOf(ReadRtf(WriteRtf(text))), ChaptersOf(text));
  const std::vector<ParagraphRun> expected{
      {1, {.outlineLevel = 1}}, {1, {.leftIndent = 20}}, {1, {.leftIndent = 20, .outlineLevel = 2}}, {1, {}}};
  EXPECT_EQ(text.paragraphs, expected);
}

TEST(HeadingsTest, EndAtTheEndOfATextThatHasFewerParagraphsThanFormats) {
  RichText text;
  text.text = "Eins\nzwei";
  text.paragraphs = {{5, {.outlineLevel = 1}}};
  EXPECT_EQ(ChaptersOf(text), (std::vector<Chapter>{{"Eins", 1, 0}, {"zwei", 1, 5}}));
}

}  // namespace
}  // namespace lorelin
