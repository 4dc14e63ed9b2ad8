#include "import/pdfLines.h"

#include <gtest/gtest.h>

#include "import/pdfHyphens.h"

namespace lorelin {
namespace {

// A page that a test fills with lines of ten-point type.
class PdfPages : public testing::Test {
 protected:
  // Words of four points a letter, blanks of three.
  void Line(double left, double top, const std::string& text, double size = 10, bool bold = false) {
    if (pages.empty()) pages.push_back({260, 800, {}});
    std::size_t begin = 0;
    while (begin < text.size()) {
      const auto end = std::min(text.find(' ', begin), text.size());
      const double width = 4.0 * static_cast<double>(end - begin) * size / 10;
      PdfWord word{text.substr(begin, end - begin), left, top, left + width, top + size};
      word.size = size;
      word.bold = bold;
      pages.back().words.push_back(word);
      left += width + 3;
      begin = end + 1;
    }
  }
  void NextPage() { pages.push_back({260, 800, {}}); }

  std::vector<std::string> Texts() {
    std::vector<std::string> texts;
    paragraphs = AssemblePdf(pages);
    for (const auto& paragraph : paragraphs) texts.push_back(paragraph.Text());
    return texts;
  }
  using List = std::vector<std::string>;

  std::vector<PdfPage> pages;
  std::vector<PdfParagraph> paragraphs;
};

TEST_F(PdfPages, LinesBecomeParagraphsWhereTheyAreFull) {
  Line(50, 100, "Dies ist ein langer Satz der umbrochen");
  Line(50, 112, "wird und endet.");
  Line(50, 124, "Dies ist der zweite Absatz des ganzen");
  Line(50, 136, "Textes.");
  EXPECT_EQ(Texts(), (List{"Dies ist ein langer Satz der umbrochen wird und endet.",
                           "Dies ist der zweite Absatz des ganzen Textes."}));
}

TEST_F(PdfPages, AGapOrAnIndentBeginsAParagraph) {
  Line(50, 100, "Erste Zeile die bis zum Rand hin reicht");
  Line(50, 130, "Zweite Zeile die bis zum Rand hin geht.");
  Line(62, 142, "Dritte Zeile die eingerückt beginnt x");
  EXPECT_EQ(Texts().size(), 3U);
}

TEST_F(PdfPages, DividedWordsAreWholeAgain) {
  Line(50, 100, "Das Haus an der langen Straße hat Fens-");
  Line(50, 112, "ter und Türen aus dem Nord- und Süd- und");
  Line(50, 124, "Ende.");
  EXPECT_EQ(Texts(),
            (List{"Das Haus an der langen Straße hat Fenster und Türen aus dem Nord- und Süd- und Ende."}));
}

TEST_F(PdfPages, ColumnsAreReadOneAfterTheOther) {
  for (int i = 0; i < 6; ++i) {
    Line(50, 100 + 12 * i, "links links links " + std::to_string(i));
    Line(300, 100 + 12 * i, "rechts rechts rechts " + std::to_string(i));
  }
  std::string text;
  for (const std::string& paragraph : Texts()) text += paragraph + "\n";
  EXPECT_LT(text.find("links 5"), text.find("rechts"));
}

TEST_F(PdfPages, TablesAreReadRowByRow) {
  for (int i = 0; i < 4; ++i) {
    Line(50, 100 + 12 * i, "Name" + std::to_string(i));
    Line(200, 100 + 12 * i, "Wert" + std::to_string(i));
  }
  EXPECT_EQ(Texts(), (List{"Name0; Wert0", "Name1; Wert1", "Name2; Wert2", "Name3; Wert3"}));
}

TEST_F(PdfPages, RunningHeadsAndNumbersOfPagesAreLeftOut) {
  for (int i = 0; i < 5; ++i) {
    if (i > 0) NextPage();
    Line(50, 30, i % 2 == 0 ? "Der Titel des Buches" : "Kapitel");
    Line(50, 100, "Auf Seite " + std::string(static_cast<std::size_t>(i + 1), 'x') + " beginnt ein Satz.");
    Line(50, 112, "Und noch einer.");
    Line(290, 770, "Seite " + std::to_string(i + 7));
  }
  for (const std::string& text : Texts()) {
    EXPECT_EQ(text.find("Titel"), std::string::npos) << text;
    EXPECT_EQ(text.find("Kapitel"), std::string::npos) << text;
    EXPECT_EQ(text.find("Seite 7"), std::string::npos) << text;
  }
  EXPECT_EQ(Texts().front(), "Auf Seite x beginnt ein Satz.");
}

TEST_F(PdfPages, TheFirstLineOfTheTextIsNoRunningHead) {
  for (int i = 0; i < 5; ++i) {
    if (i > 0) NextPage();
    Line(50, 60, std::string(static_cast<std::size_t>(i + 1), 'a') + " erste Zeile die bis zum Rand reicht");
    Line(50, 72, std::string(static_cast<std::size_t>(i + 1), 'b') + " Ende.");
  }
  std::string text;
  for (const std::string& paragraph : Texts()) text += paragraph + "\n";
  std::size_t found = 0;
  for (auto at = text.find("erste"); at != std::string::npos; at = text.find("erste", at + 1)) ++found;
  EXPECT_EQ(found, 5U) << text;
}

TEST_F(PdfPages, ASentenceGoesOnAcrossPages) {
  Line(50, 600, "Hier steht ein Satz der auf der Seite nicht");
  NextPage();
  Line(50, 60, "endet sondern erst auf der nächsten Seite.");
  EXPECT_EQ(Texts(),
            (List{"Hier steht ein Satz der auf der Seite nicht endet sondern erst auf der nächsten Seite."}));
}

TEST_F(PdfPages, LargeAndBoldLinesAreHeadings) {
  Line(50, 50, "Großer Titel", 20);
  Line(50, 100, "Fetter Titel", 10, true);
  Line(50, 120, "Der Text der darunter steht und länger ist.");
  EXPECT_EQ(Texts().size(), 3U);
  EXPECT_EQ(paragraphs[0].heading, 1);
  EXPECT_EQ(paragraphs[1].heading, 2);
  EXPECT_EQ(paragraphs[2].heading, 0);
}

TEST_F(PdfPages, EmptyPagesAreNoText) {
  EXPECT_TRUE(AssemblePdf({}).empty());
  EXPECT_TRUE(AssemblePdf({{260, 800, {}}, {0, 0, {}}}).empty());
}

TEST(PdfHyphens, AreKeptWhereTheyBelongToTheWord) {
  EXPECT_EQ(JointOf("Fens-", "ter"), LineJoint::WithoutHyphen);
  EXPECT_EQ(JointOf("die Stra\u00AD", "ße"), LineJoint::WithoutHyphen);
  EXPECT_EQ(JointOf("Über\u2010", "übermut"), LineJoint::WithoutHyphen);
  EXPECT_EQ(JointOf("eine E-", "Mail"), LineJoint::None);
  EXPECT_EQ(JointOf("das e-", "book"), LineJoint::None);
  EXPECT_EQ(JointOf("Karl-Heinz-", "Straße"), LineJoint::None);
  EXPECT_EQ(JointOf("2010-", "2015"), LineJoint::None);
  EXPECT_EQ(JointOf("Nord-", "und Südbahnhof"), LineJoint::Blank);
  EXPECT_EQ(JointOf("Ein-", "oder ausgang"), LineJoint::Blank);
  EXPECT_EQ(JointOf("er kam -", "und ging"), LineJoint::Blank);
  EXPECT_EQ(JointOf("der", "Hund"), LineJoint::Blank);
}

}  // namespace
}  // namespace lorelin
