#include "import/DocumentBuilder.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"

namespace lorelin {
namespace {

using Gap = DocumentBuilder::Gap;

TEST(DocumentBuilder, MakesOneBlankOfWhiteSpaceAcrossPieces) {
  DocumentBuilder builder;
  builder.Text(" \n Ein ");
  builder.SetFormat({.bold = true});
  builder.Text(" fettes\t");
  builder.SetFormat({});
  builder.Text("\nWort ");
  const auto document = builder.Finish();
  EXPECT_EQ(document.text.text, "Ein fettes Wort");
  ASSERT_EQ(document.text.runs.size(), 3U);
  EXPECT_TRUE(document.text.runs[1].format.bold);
}

TEST(DocumentBuilder, LeavesOutWhatNobodySees) {
  DocumentBuilder builder;
  builder.Text(
      "Do\u00ADnau\u200B\uFEFF\x01"
      "fahrt \xFF\u2028x");
  EXPECT_EQ(builder.Finish().text.text, "Donaufahrt \uFFFD x");
}

TEST(DocumentBuilder, KeepsBreaksBetweenTextsOnly) {
  DocumentBuilder builder;
  builder.Break(Gap::Paragraph);
  builder.Text("a");
  builder.Break(Gap::Line);
  builder.Break(Gap::Paragraph);
  builder.Break(Gap::Line);
  builder.Text(" b");
  builder.LineBreak();
  builder.Text("c");
  builder.Break(Gap::Paragraph);
  const auto document = builder.Finish();
  EXPECT_EQ(document.text.text, "a\n\nb\nc");
  std::size_t paragraphs = 0;
  for (const auto& run : document.text.paragraphs) paragraphs += run.paragraphs;
  EXPECT_EQ(paragraphs, 4U);
}

TEST(DocumentBuilder, PutsCellsOfARowBehindEachOther) {
  DocumentBuilder builder;
  for (const char* row : {"a", "b"}) {
    builder.BeginRow();
    for (const char* cell : {"1", "", "2"}) {
      builder.BeginCell();
      if (*cell != '\0') builder.Text(row);
      builder.Break(Gap::Paragraph);
      builder.Text(cell);
    }
    builder.EndRow();
  }
  EXPECT_EQ(builder.Finish().text.text, "a 1; a 2\nb 1; b 2");
}

TEST(DocumentBuilder, CountsPlacesInCharacters) {
  DocumentBuilder builder;
  builder.Text("Größe 😀");
  builder.Anchor("hier");
  builder.BeginHeading(2);
  builder.Text(" Über ");
  builder.LineBreak();
  builder.Text("uns");
  builder.EndHeading();
  const auto anchors = builder.Anchors();
  const auto document = builder.Finish();
  ASSERT_EQ(document.info.chapters.size(), 1U);
  EXPECT_EQ(document.info.chapters[0], (Chapter{"Über uns", 2, 9}));
  EXPECT_EQ(anchors.at("hier"), 9U);
}

TEST(DocumentBuilder, KeepsTheFormOfPreformattedText) {
  DocumentBuilder builder;
  builder.Preformatted("if a:\n  b   c\n\n\n\nd");
  EXPECT_EQ(builder.Finish().text.text, "if a:\n  b   c\n\nd");
}

TEST(DocumentBuilder, PutsAMarkBeforeTextOnly) {
  DocumentBuilder builder;
  builder.Mark("• ");
  builder.Break(Gap::Line);
  builder.DropMark();
  builder.Mark("• ");
  builder.Break(Gap::Line);
  builder.Text("a");
  EXPECT_EQ(builder.Finish().text.text, "• a");
}

}  // namespace
}  // namespace lorelin
