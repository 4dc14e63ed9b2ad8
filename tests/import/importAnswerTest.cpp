#include "import/importAnswer.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"

namespace lorelin {
namespace {

ImportedDocument Example() {
  ImportedDocument document;
  document.text.text = "Größe\nZweiter Absatz";
  document.text.fonts = {"", "Serif"};
  document.text.runs = {{7, {.font = 1, .halfPoints = 32, .foreground = 0x102030, .bold = true}},
                        {15, {.italic = true, .position = ScriptPosition::Subscript}}};
  document.text.paragraphs = {{1, {.alignment = Alignment::Centred, .leftIndent = -20}}, {1, {}}};
  document.info = {"Titel", "Verfasserin", "de-AT", {{"Größe", 1, 0}, {"Zweiter", 2, 6}}};
  document.notice = "Zwei Seiten fehlen.";
  document.hasPages = true;
  return document;
}

void ExpectRefused(const ImportedDocument& document) {
  EXPECT_THROW((void)ReadImportAnswer(WriteImportAnswer(document)), RuntimeError);
}

TEST(ImportAnswer, GivesTheDocumentBack) {
  EXPECT_EQ(ReadImportAnswer(WriteImportAnswer(Example())), Example());
  EXPECT_EQ(ReadImportAnswer(WriteImportAnswer({})), ImportedDocument());
}

TEST(ImportAnswer, RaisesTheSentenceOfAProblem) {
  try {
    (void)ReadImportAnswer(WriteImportProblem("Die Datei ist leer."));
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 321);
    EXPECT_STREQ(error.what(), "Die Datei ist leer.");
  }
}

TEST(ImportAnswer, IsRefusedWhenItIsCutAnywhere) {
  const std::string whole = WriteImportAnswer(Example());
  for (std::size_t size = 0; size < whole.size(); ++size) {
    // Of its own, so that nobody reads unnoticed what stood behind the cut.
    const std::string cut = whole.substr(0, size);
    EXPECT_THROW((void)ReadImportAnswer(cut), RuntimeError) << size;
  }
  EXPECT_THROW((void)ReadImportAnswer(whole + "x"), RuntimeError);
}

TEST(ImportAnswer, IsRefusedWithRunsThatReachBeyondTheText) {
  auto document = Example();
  document.text.runs[1].bytes = 16;
  ExpectRefused(document);
  document = Example();
  document.text.runs[0].bytes = 3;  // within the second letter
  ExpectRefused(document);
  document = Example();
  document.text.paragraphs[1].paragraphs = 2;
  ExpectRefused(document);
}

TEST(ImportAnswer, IsRefusedWithAFontThatIsNotInTheList) {
  auto document = Example();
  document.text.runs[1].format.font = 2;
  ExpectRefused(document);
  document.text.fonts.clear();
  ExpectRefused(document);
}

TEST(ImportAnswer, IsRefusedWithChaptersOutsideTheTextOrOutOfOrder) {
  auto document = Example();
  document.info.chapters[1].position = 21;  // characters, not bytes
  ExpectRefused(document);
  document = Example();
  std::swap(document.info.chapters[0], document.info.chapters[1]);
  ExpectRefused(document);
  document = Example();
  document.info.chapters[0].level = 0;
  ExpectRefused(document);
  document = Example();
  document.info.chapters[0].title = "zwei\nZeilen";
  ExpectRefused(document);
}

TEST(ImportAnswer, IsRefusedWithTextThatIsNone) {
  const std::vector<std::string> texts{"Gr\xF6\xDF", std::string("a\0b", 3), "a\r\n"};
  for (const std::string& text : texts) {
    ImportedDocument document;
    document.text.text = text;
    ExpectRefused(document);
  }
}

}  // namespace
}  // namespace lorelin
