#include "richtext/rtf.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/textEncoding.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

std::string Text(const std::string& body) {
  return ReadRtf("{\\rtf1\\ansi\\ansicpg1252\\deff0 " + body + "}").text;
}

// The format of the first character.
CharacterFormat Format(const std::string& body) {
  const RichText text = ReadRtf(
      "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}{\\f1\\froman Times New "
      "Roman;}}{\\colortbl;\\red255\\green0\\blue0;"
      "\\red0\\green128\\blue255;}" +
      body + "}");
  return text.runs.empty() ? CharacterFormat{} : text.runs[0].format;
}

ParagraphFormat Paragraph(const std::string& body) {
  const RichText text = ReadRtf("{\\rtf1 " + body + "}");
  return text.paragraphs.empty() ? ParagraphFormat{} : text.paragraphs[0].format;
}

TEST(ReadRtf, TakesPlainTextAndItsParagraphs) {
  EXPECT_EQ(Text("Hallo"), "Hallo");
  EXPECT_EQ(Text("eins\\par zwei\\par"), "eins\nzwei");
  EXPECT_EQ(Text("eins\\par\\par zwei\\par\\par"), "eins\n\nzwei\n");
  EXPECT_EQ(Text("eins\\\nzwei\\line drei\\page vier"), "eins\nzwei\ndrei\nvier");
  EXPECT_EQ(Text("ei\r\nns"), "eins");
  EXPECT_EQ(Text(""), "");
}

TEST(ReadRtf, TakesSymbols) {
  EXPECT_EQ(Text("\\{a\\\\b\\}"), "{a\\b}");
  EXPECT_EQ(Text("a\\tab b"), "a\tb");
  EXPECT_EQ(Text("\\lquote a\\rquote\\ldblquote b\\rdblquote\\bullet\\endash\\emdash"), "‘a’“b”•–—");
  EXPECT_EQ(Text("a\\~b\\_c"),
            "a\u00A0b\u2011"
            "c");
}

TEST(ReadRtf, TakesBytesOfTheCodePage) {
  EXPECT_EQ(Text("Gr\\'fc\\'dfe \\'80"), "Grüße €");
  EXPECT_EQ(Text("Gr\xFC\xDF"
                 "e"),
            "Grüße");
  EXPECT_EQ(ReadRtf("{\\rtf1\\ansi\\ansicpg1250 \\'b9\\'e8}").text, "ąč");
  EXPECT_EQ(ReadRtf("{\\rtf1\\ansi\\ansicpg1251 \\'cf\\'f0\\'e8}").text, "При");
  EXPECT_EQ(ReadRtf("{\\rtf1\\mac \\'8a\\'a7}").text, "äß");
  EXPECT_EQ(ReadRtf("{\\rtf1\\pc \\'81}").text, "ü");
  EXPECT_EQ(ReadRtf("{\\rtf1\\pca \\'81}").text, "ü");
}

TEST(ReadRtf, TakesTheCodePageOfTheFont) {
  EXPECT_EQ(ReadRtf("{\\rtf1\\ansi{\\fonttbl{\\f0 A;}{\\f1\\fcharset204 B;}{\\f2\\fcharset161 C;}}\\f1 "
                    "\\'cf\\f2 \\'e1\\f0 \\'e4}")
                .text,
            "Пαä");
}

TEST(ReadRtf, TakesUnicodeAndPassesOverItsFallback) {
  EXPECT_EQ(Text("\\u8364?"), "€");
  EXPECT_EQ(Text("\\u8364\\'80x"), "€x");
  EXPECT_EQ(Text("\\uc2\\u8364 abc"), "€c");
  EXPECT_EQ(Text("\\uc0\\u8364 abc"), "€abc");
  EXPECT_EQ(Text("{\\uc0\\u8364 a}\\u8364 bc"), "€a€c");
  EXPECT_EQ(Text("\\u-10180?\\u-8256?"), "🏀");
  EXPECT_EQ(Text("\\u-10179?x"), "x");
  EXPECT_EQ(Text("\\u8364\\par x"), "€\nx");
}

TEST(ReadRtf, TakesTheFormatOfCharacters) {
  EXPECT_TRUE(Format("\\b x").bold);
  EXPECT_FALSE(Format("\\b\\b0 x").bold);
  EXPECT_TRUE(Format("\\i x").italic);
  EXPECT_TRUE(Format("\\ul x").underline);
  EXPECT_FALSE(Format("\\ul\\ulnone x").underline);
  EXPECT_TRUE(Format("\\uldb x").underline);
  EXPECT_TRUE(Format("\\strike x").strikeThrough);
  EXPECT_EQ(Format("\\super x").position, ScriptPosition::Superscript);
  EXPECT_EQ(Format("\\up8 x").position, ScriptPosition::Superscript);
  EXPECT_EQ(Format("\\up0 x").position, ScriptPosition::Normal);
  EXPECT_EQ(Format("\\dn2 x").position, ScriptPosition::Subscript);
  EXPECT_EQ(Format("\\sub x").position, ScriptPosition::Subscript);
  EXPECT_EQ(Format("\\sub\\nosupersub x").position, ScriptPosition::Normal);
  EXPECT_EQ(Format("\\fs28 x").halfPoints, 28);
  EXPECT_EQ(Format("\\cf1 x").foreground, 0xFF0000);
  EXPECT_EQ(Format("\\cf0 x").foreground, kAutomaticColour);
  EXPECT_EQ(Format("\\highlight2 x").background, 0x0080FF);
  EXPECT_EQ(Format("\\cf99 x").foreground, kAutomaticColour);
  EXPECT_FALSE(Format("\\b\\i\\plain x").bold);
  EXPECT_FALSE(Format("{\\b y}x").italic);
}

TEST(ReadRtf, NamesTheFonts) {
  const RichText text =
      ReadRtf("{\\rtf1\\deff1{\\fonttbl{\\f0 Arial;}{\\f1\\froman Times New Roman;}}a{\\f0 b}}");
  ASSERT_EQ(text.runs.size(), 2U);
  EXPECT_EQ(text.fonts[text.runs[0].format.font], "Times New Roman");
  EXPECT_EQ(text.fonts[text.runs[1].format.font], "Arial");
}

TEST(ReadRtf, GivesAGroupsFormatBackAtItsEnd) {
  const RichText text = ReadRtf("{\\rtf1 a{\\b b}c}");
  ASSERT_EQ(text.runs.size(), 3U);
  EXPECT_FALSE(text.runs[0].format.bold);
  EXPECT_TRUE(text.runs[1].format.bold);
  EXPECT_FALSE(text.runs[2].format.bold);
}

TEST(ReadRtf, TakesTheFormatOfParagraphs) {
  EXPECT_EQ(Paragraph("\\qc x\\par").alignment, Alignment::Centred);
  EXPECT_EQ(Paragraph("\\qr x\\par").alignment, Alignment::Right);
  EXPECT_EQ(Paragraph("\\qj x").alignment, Alignment::Justified);
  EXPECT_EQ(Paragraph("\\qc\\pard x").alignment, Alignment::Left);
  EXPECT_EQ(Paragraph("\\li720\\ri360\\fi-200 x").leftIndent, 720);
  EXPECT_EQ(Paragraph("\\li720\\ri360\\fi-200 x").rightIndent, 360);
  EXPECT_EQ(Paragraph("\\li720\\ri360\\fi-200 x").firstLineIndent, -200);
}

TEST(ReadRtf, ShowsListsAsTheirText) {
  EXPECT_EQ(Text("{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pndec}eins\\par{\\listtext\\pard 2.\\tab}zwei"),
            "1.\teins\n2.\tzwei");
  EXPECT_EQ(Text("{\\listtext\\f1 \\u-3913 ?\\tab}eins"), "•\teins");
}

TEST(ReadRtf, ShowsTablesAsLinesWithTabs) {
  EXPECT_EQ(Text("\\trowd\\cellx1000\\cellx2000\\pard\\intbl a\\cell b\\cell\\row\\intbl c\\cell "
                 "d\\cell\\row\\pard e"),
            "a\tb\nc\td\ne");
  EXPECT_EQ(Text("\\trowd\\pard\\intbl a\\par b\\cell c\\cell\\row"), "a b\tc");
}

TEST(ReadRtf, LeavesOutWhatIsNotText) {
  EXPECT_EQ(Text("{\\info{\\title Titel}}x"), "x");
  EXPECT_EQ(Text("{\\stylesheet{\\s1 Standard;}}x"), "x");
  EXPECT_EQ(Text("{\\header Kopf}{\\footer Fuß}x"), "x");
  EXPECT_EQ(Text("{\\*\\generator Programm;}x"), "x");
  EXPECT_EQ(Text("{\\*\\unbekannt {a}b}x"), "x");
  EXPECT_EQ(Text("{\\unbekannt a}x"), "ax");
  EXPECT_EQ(Text("a{\\pict\\pngblip 89504e47}b"), "ab");
  EXPECT_EQ(Text("a{\\v versteckt}b"), "ab");
  EXPECT_EQ(Text("a{\\deleted weg}b"), "ab");
}

TEST(ReadRtf, ShowsWhatFieldsAndShapesSay) {
  EXPECT_EQ(Text("{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt Verweis}}"), "Verweis");
  EXPECT_EQ(Text("{\\object\\objemb{\\*\\objdata 0102}{\\result Bild}}"), "Bild");
  EXPECT_EQ(Text("{\\shp{\\*\\shpinst{\\sp{\\sn a}{\\sv b}}{\\shptxt Feld}}{\\shprslt alt}}"), "Feld");
  EXPECT_EQ(Text("{\\upr{alt}{\\*\\ud neu}}"), "neu");
}

TEST(ReadRtf, PassesOverBinaryData) {
  EXPECT_EQ(Text("a{\\pict\\bin3 }}}}b"), "ab");
  EXPECT_EQ(Text("a{\\pict\\bin-5 x}b"), "ab");
  EXPECT_EQ(Text("a{\\pict\\bin999999999 x}b"), "a");
  EXPECT_EQ(Text("a{\\pict\\bin99999999999999999999 x}b"), "ab");
}

TEST(ReadRtf, EndsAtTheEndOfTheDocument) {
  EXPECT_EQ(ReadRtf("{\\rtf1 a}b{c}").text, "a");
  EXPECT_EQ(ReadRtf(std::string_view("{\\rtf1 a}\0", 10)).text, "a");
}

TEST(ReadRtf, ShowsWhatItCanOfABrokenFile) {
  EXPECT_EQ(ReadRtf("{\\rtf1 a{\\b b").text, "ab");
  EXPECT_EQ(ReadRtf("{\\rtf1 a\\").text, "a");
  EXPECT_EQ(ReadRtf("{\\rtf1 a\\'4").text, "a4");
  EXPECT_EQ(ReadRtf("{\\rtf1 a}}}}").text, "a");
  EXPECT_EQ(ReadRtf("{\\rtf").text, "");
  EXPECT_EQ(ReadRtf("").text, "");
}

TEST(ReadRtf, LeavesOutGroupsThatAreTooDeep) {
  const std::string open(100000, '{');
  const std::string close(100000, '}');
  EXPECT_EQ(Text("a" + open + "x" + close + "b"), "ab");
  EXPECT_EQ(Text("a" + open + "x"), "a");
}

TEST(ReadRtf, TakesAFontTableOfAnySize) {
  std::string table = "{\\fonttbl";
  for (int i = 0; i < 10000; ++i) table += "{\\f" + std::to_string(i) + " Font" + std::to_string(i) + ";}";
  const RichText text = ReadRtf("{\\rtf1" + table + "}\\f9999 x}");
  EXPECT_EQ(text.fonts[text.runs.at(0).format.font], "Font9999");
}

TEST(ReadRtf, TakesNumbersBeyondTheirRange) {
  EXPECT_EQ(Text("\\fs-5 a\\fs99999999999 b\\li-2000000000 c\\cf-1 d\\f-3 e\\u9999999 ?f\\uc-1 g"),
            "abcdefg");
}

TEST(IsRtf, LooksAtTheBeginning) {
  EXPECT_TRUE(IsRtf("{\\rtf1 x}"));
  EXPECT_FALSE(IsRtf("{\\rt"));
  EXPECT_FALSE(IsRtf("Text {\\rtf1}"));
}

RichText Sample() {
  RichText text;
  text.text = "Überschrift\nfett und ♥ 🎉 {}\\\t.\n\nEnde";
  text.fonts = {"", "DejaVu Serif"};
  text.runs = {{13, {.font = 1, .halfPoints = 40, .foreground = 0x123456}},
               {4, {.bold = true, .italic = true, .underline = true, .strikeThrough = true}},
               {5, {.background = 0xFFEE00, .position = ScriptPosition::Subscript}},
               {text.text.size() - 22, {}}};
  text.paragraphs = {
      {1, {.alignment = Alignment::Centred}},
      {3,
       {.alignment = Alignment::Justified, .leftIndent = 300, .rightIndent = 20, .firstLineIndent = -100}}};
  return text;
}

TEST(WriteRtf, GivesBackTextAndFormat) {
  EXPECT_EQ(ReadRtf(WriteRtf(Sample())), Sample());
  for (const auto* const plain : {"", "a", "\n", "a\n", "\n\na\n\n", "ä🎉"}) {
    RichText text;
    text.text = plain;
    EXPECT_EQ(ReadRtf(WriteRtf(text)).text, plain);
  }
}

TEST(WriteRtf, IsPureAscii) {
  for (const char c : WriteRtf(Sample())) EXPECT_LT(static_cast<unsigned char>(c), 0x80);
}

TEST(WriteRtf, ReplacesBadBytes) {
  RichText text;
  text.text =
      "a\xFF"
      "b";
  EXPECT_EQ(ReadRtf(WriteRtf(text)).text, "a\uFFFDb");
}

// Every file of the corpus has its text beside it; what was read and written has the same text and format,
// and no beginning of it does any harm.
class RtfCorpus : public testing::TestWithParam<std::string> {
 protected:
  std::string File(const char* ending) {
    return ReadFile(std::string(LORELIN_RTF_CORPUS) + "/" + GetParam() + ending);
  }
};

TEST_P(RtfCorpus, ShowsItsText) {
  EXPECT_EQ(ReadRtf(File(".rtf")).text, File(".txt"));
}

TEST_P(RtfCorpus, SurvivesWriting) {
  const RichText once = ReadRtf(File(".rtf"));
  const RichText twice = ReadRtf(WriteRtf(once));
  EXPECT_EQ(twice.text, once.text);
  EXPECT_EQ(WriteRtf(twice), WriteRtf(ReadRtf(WriteRtf(twice))));
}

TEST_P(RtfCorpus, CanBeCutAnywhere) {
  const std::string bytes = File(".rtf");
  const std::size_t cuts = bytes.size() > 100000 ? 100 : 1000;
  const std::size_t step = std::max<std::size_t>(bytes.size() / cuts, 1);
  for (std::size_t size = 0; size < bytes.size(); size += step) {
    EXPECT_TRUE(IsValidUtf8(ReadRtf(std::string_view(bytes).substr(0, size)).text));
  }
}

std::vector<std::string> CorpusNames() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(LORELIN_RTF_CORPUS)) {
    if (entry.path().extension() == ".rtf") names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

INSTANTIATE_TEST_SUITE_P(Files, RtfCorpus, testing::ValuesIn(CorpusNames()),
                         [](const auto& info) { return info.param; });

}  // namespace
}  // namespace lorelin
