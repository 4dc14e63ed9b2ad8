#include "import/importAnswer.h"
#include "tests/cli/CliFilesFixture.h"

namespace lorelin::cli {
namespace {

TEST_F(CliFiles, ReadADecodedText) {
  WriteFile(Path("alt.txt"), "Gr\374\337e\r\nEnde");
  EXPECT_EQ(LoadSpeakable(Path("alt.txt"), importer_).text, "Grüße\nEnde");
}

TEST_F(CliFiles, ReadRtfWithoutItsFormats) {
  WriteFile(Path("brief.rtf"), "{\\rtf1 Gr\\'fc\\'dfe {\\b fett}}");
  const LoadedDocument document = LoadSpeakable(Path("brief.rtf"), importer_);
  EXPECT_EQ(document.text, "Grüße fett");
  EXPECT_EQ(document.name, "brief");
}

TEST_F(CliFiles, ReadADocumentOfAnotherFormat) {
  ImportedDocument book;
  book.text.text = "Eins\nText";
  book.info.title = "Buch";
  book.info.chapters = {{"Eins", 1, 0}};
  importer_.answer = {.bytes = WriteImportAnswer(book), .problem = {}};
  const LoadedDocument document = LoadSpeakable("ordner/Mein Buch.epub", importer_);
  EXPECT_EQ(importer_.jobs.at(0).path, "ordner/Mein Buch.epub");
  EXPECT_EQ(document.text, "Eins\nText");
  EXPECT_EQ(document.info, book.info);
  EXPECT_EQ(document.name, "Mein Buch");
}

TEST_F(CliFiles, TellWhyADocumentCannotBeRead) {
  importer_.answer = {.bytes = {}, .problem = "Sie ist beschädigt."};
  EXPECT_EQ(Reading("buch.epub"), "3: „buch.epub“ kann nicht gelesen werden: Sie ist beschädigt.");
  importer_.answer = {.bytes = "Unsinn", .problem = {}};
  EXPECT_EQ(Reading("buch.epub").substr(0, 3), "3: ");
}

TEST_F(CliFiles, TellWhyATextCannotBeRead) {
  EXPECT_EQ(Reading(Path("fehlt")),
            "3: „" + Path("fehlt") + "“ kann nicht gelesen werden: Datei nicht gefunden.");
  EXPECT_EQ(Reading(folder_.Path()),
            "3: „" + folder_.Path() + "“ kann nicht gelesen werden: Das ist ein Ordner.");
}

TEST_F(CliFiles, RefuseABlankText) {
  for (const std::string text : {"", " ", "\n\t \r\n", "\f\v"}) {
    WriteFile(Path("leer.txt"), text);
    EXPECT_EQ(Reading(Path("leer.txt")), "3: Der Text ist leer: es gibt nichts vorzulesen.");
  }
}

TEST_F(CliFiles, LeaveATargetAsItWas) {
  EXPECT_EQ(Writing(Path("neu.wav")), "(gelungen)");
  EXPECT_FALSE(Exists(Path("neu.wav")));
  WriteFile(Path("alt.wav"), "RIFF");
  EXPECT_EQ(Writing(Path("alt.wav")), "(gelungen)");
  EXPECT_EQ(ReadFile(Path("alt.wav")), "RIFF");
}

TEST_F(CliFiles, TellWhyATargetCannotBeWritten) {
  EXPECT_EQ(Writing(Path("fehlt/a.wav")),
            "4: „" + Path("fehlt/a.wav") + "“ kann nicht geschrieben werden: Pfad nicht gefunden.");
  EXPECT_EQ(Writing(folder_.Path()),
            "4: „" + folder_.Path() + "“ kann nicht geschrieben werden: Das ist ein Ordner.");
}

}  // namespace
}  // namespace lorelin::cli
