#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/textEncoding.h"
#include "import/importAnswer.h"
#include "import/importFormats.h"
#include "import/readDocument.h"
#include "platform/linux/ImportProcessRunner.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

const std::string kContainer = "<container><rootfiles><rootfile full-path='a.opf'/></rootfiles></container>";
const std::string kPackage =
    "<package><manifest><item id='a' href='a.xhtml'/></manifest><spine><itemref "
    "idref='a'/></spine></package>";
const std::string kWordSpace = "xmlns:w='http://schemas.openxmlformats.org/wordprocessingml/2006/main'";

void WriteZip(const std::string& path, const std::map<std::string, std::string>& files) {
  archive* const writer = archive_write_new();
  archive_write_set_format_zip(writer);
  archive_write_open_filename(writer, path.c_str());
  for (const auto& [name, content] : files) {
    archive_entry* const entry = archive_entry_new();
    archive_entry_set_pathname(entry, name.c_str());
    archive_entry_set_size(entry, static_cast<la_int64_t>(content.size()));
    archive_entry_set_filetype(entry, AE_IFREG);
    archive_entry_set_perm(entry, 0644);
    archive_write_header(writer, entry);
    archive_write_data(writer, content.data(), content.size());
    archive_entry_free(entry);
  }
  archive_write_free(writer);
}

void AppendNumber(std::string& bytes, std::uint32_t number, unsigned size) {
  for (unsigned i = 0; i < size; ++i) bytes += static_cast<char>(number >> (8 * i) & 0xFFU);
}

// An archive of that many empty files, of which nothing but the table at its end is right.
std::string CrowdedZip(std::uint32_t files, std::uint32_t said) {
  std::string bytes = "PK\x03\x04" + std::string(26, '\0');
  const auto begin = static_cast<std::uint32_t>(bytes.size());
  for (std::uint32_t i = 0; i < files; ++i) {
    const std::string name = std::to_string(i);
    bytes += "PK\x01\x02" + std::string(24, '\0');
    AppendNumber(bytes, static_cast<std::uint32_t>(name.size()), 2);
    bytes += std::string(16, '\0') + name;
  }
  const auto size = static_cast<std::uint32_t>(bytes.size()) - begin;
  bytes += "PK\x05\x06" + std::string(4, '\0');
  AppendNumber(bytes, said, 2);
  AppendNumber(bytes, said, 2);
  AppendNumber(bytes, size, 4);
  AppendNumber(bytes, begin, 4);
  return bytes + std::string(2, '\0');
}

// Read by the process itself.
class HostileFile : public testing::Test {
 protected:
  std::string ProblemOf(const std::string& name) {
    const auto answer = runner_.Run({folder.File(name), false, false, {}}, {});
    if (!answer.problem.empty()) return "ENDED: " + answer.problem;
    try {
      return "READ: " + ReadImportAnswer(answer.bytes).text.text.substr(0, 100);
    } catch (const RuntimeError& error) {
      return error.what();
    }
  }

  TemporaryFolder folder;

 private:
  ImportProcessRunner runner_{LORELIN_BIN_DIR "/lorelin-import"};
};

constexpr std::string_view kTooLarge = "Das Dokument ist zu umfangreich, um geöffnet zu werden";

TEST_F(HostileFile, ThatUnpacksToTooMuchIsRefused) {
  WriteZip(folder.File("a.epub"), {{"META-INF/container.xml", kContainer},
                                   {"a.opf", kPackage},
                                   {"a.xhtml", std::string(std::size_t{200} << 20U, ' ')}});
  EXPECT_TRUE(ProblemOf("a.epub").starts_with(kTooLarge)) << ProblemOf("a.epub");
}

TEST_F(HostileFile, OfAMillionFilesIsRefused) {
  WriteFile(folder.File("a.epub"), CrowdedZip(1'000'000, 0xFFFF));
  EXPECT_TRUE(ProblemOf("a.epub").starts_with(kTooLarge)) << ProblemOf("a.epub");
  // One that lies about it.
  WriteFile(folder.File("b.epub"), CrowdedZip(1'000'000, 7));
  EXPECT_TRUE(ProblemOf("b.epub").starts_with(kTooLarge)) << ProblemOf("b.epub");
}

TEST_F(HostileFile, WithEntitiesOfEntitiesGivesNoText) {
  std::string bomb = "<!DOCTYPE b [<!ENTITY a0 'ha'>";
  for (int i = 1; i < 40; ++i) {
    const std::string inner = "&a" + std::to_string(i - 1) + ";";
    bomb += "<!ENTITY a" + std::to_string(i) + " '" + inner + inner + inner + "'>";
  }
  bomb += "]>";
  WriteFile(folder.File("a.fb2"), bomb + "<FictionBook><body><p>Text&a39;</p></body></FictionBook>");
  EXPECT_EQ(ProblemOf("a.fb2"), "READ: Text");
  WriteZip(folder.File("a.docx"),
           {{"word/document.xml", bomb + "<w:document " + kWordSpace +
                                      "><w:body><w:p><w:r><w:t>Text&a39;</w:t></w:r></w:p>"
                                      "</w:body></w:document>"}});
  EXPECT_EQ(ProblemOf("a.docx"), "READ: Text");
}

TEST_F(HostileFile, ThatNamesFilesOfTheSystemDoesNotGetThem) {
  WriteFile(folder.File("secret"), "GEHEIM");
  const std::string secret = "file://" + folder.File("secret");
  WriteFile(folder.File("a.fb2"), "<!DOCTYPE b [<!ENTITY x SYSTEM '" + secret +
                                      "'>]><FictionBook><body><p>Text&x;</p></body></FictionBook>");
  EXPECT_EQ(ProblemOf("a.fb2"), "READ: Text");
  WriteFile(folder.File("a.html"),
            "<p>Text<iframe src='" + secret + "'></iframe><object data='" + secret + "'>");
  EXPECT_EQ(ProblemOf("a.html"), "READ: Text");
  WriteZip(folder.File("a.epub"),
           {{"META-INF/container.xml", kContainer},
            {"a.opf", "<package><manifest><item id='a' href='../../.." + folder.File("secret") +
                          "'/></manifest><spine><itemref idref='a'/></spine></package>"},
            {"../../x", "y"}});
  EXPECT_EQ(ProblemOf("a.epub"),
            "Das E-Book ist beschädigt oder unvollständig. Bitte öffnen Sie eine andere Kopie.");
}

TEST_F(HostileFile, WithElementsInEachOtherIsReadOrRefused) {
  std::string nested;
  for (int i = 0; i < 300'000; ++i) nested += "<a>";
  for (const char* name : {"a.html", "a.fb2"}) {
    WriteFile(folder.File(name), "<FictionBook><body><p>" + nested + "tief");
    EXPECT_FALSE(ProblemOf(name).starts_with("ENDED")) << ProblemOf(name);
  }
  std::string quotes(200'000, '>');
  WriteFile(folder.File("a.md"),
            quotes + " tief\n\n" + std::string(200'000, '[') + std::string(200'000, '*'));
  EXPECT_FALSE(ProblemOf("a.md").starts_with("ENDED")) << ProblemOf("a.md");
}

TEST_F(HostileFile, OfTooManyElementsIsRefusedWithinItsMemory) {
  std::string many = "<p>";
  for (int i = 0; i < 6'000'000; ++i) many += "<i>x";
  WriteFile(folder.File("a.html"), many);
  EXPECT_FALSE(ProblemOf("a.html").starts_with("READ")) << ProblemOf("a.html");
}

TEST_F(HostileFile, WithAPasswordSaysSo) {
  WriteZip(folder.File("a.odt"),
           {{"content.xml", "x"},
            {"META-INF/manifest.xml",
             "<m:manifest xmlns:m='urn:oasis:names:tc:opendocument:xmlns:manifest:1.0'><m:file-entry>"
             "<m:encryption-data/></m:file-entry></m:manifest>"}});
  EXPECT_NE(ProblemOf("a.odt").find("Kennwort"), std::string::npos);
  WriteFile(folder.File("a.docx"), "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + std::string(600, '\0'));
  EXPECT_NE(ProblemOf("a.docx").find("Kennwort"), std::string::npos);
  WriteZip(folder.File("a.epub"), {{"META-INF/container.xml", kContainer},
                                   {"a.opf", kPackage},
                                   {"a.xhtml", "garbage"},
                                   {"META-INF/encryption.xml", "<e><CipherReference URI='a.xhtml'/></e>"}});
  EXPECT_NE(ProblemOf("a.epub").find("Kopierschutz"), std::string::npos);
}

TEST_F(HostileFile, ThatIsNoneIsRefused) {
  EXPECT_EQ(ProblemOf("none.epub"), "Die Datei wurde nicht gefunden.");
  WriteFile(folder.File("empty.pdf"), "");
  EXPECT_EQ(ProblemOf("empty.pdf"), "Die Datei ist leer.");
  fs::create_directory(folder.File("folder.md"));
  EXPECT_EQ(ProblemOf("folder.md"), "Das ist keine Datei, die sich öffnen lässt.");
  mkfifo(folder.File("fifo.md").c_str(), 0600);
  EXPECT_EQ(ProblemOf("fifo.md"), "Das ist keine Datei, die sich öffnen lässt.");
}

TEST_F(HostileFile, OfGarbageIsRefusedUnderEveryEnding) {
  std::string garbage;
  for (std::uint32_t i = 1; i < 20'000; ++i) garbage += static_cast<char>((i * 2654435761U) >> 24U);
  for (const ImportFormat& format : ImportFormats()) {
    for (const std::string_view ending : format.endings) {
      const std::string name = "a." + std::string(ending);
      WriteFile(folder.File(name), garbage);
      const std::string problem = ProblemOf(name);
      EXPECT_FALSE(problem.starts_with("READ") || problem.starts_with("ENDED")) << name << problem;
      EXPECT_TRUE(problem.ends_with(".")) << problem;
    }
  }
}

TEST(CutFiles, SayThatTextMayBeMissing) {
  TemporaryFolder folder;
  WriteFile(folder.File("a.fb2"), "<FictionBook><body><p>Anfang</p><p>Ende</p></body></FictionBook>");
  EXPECT_EQ(ReadDocument({folder.File("a.fb2"), false, false, {}}, [](int) {}).notice, "");
  WriteFile(folder.File("a.fb2"), "<FictionBook><body><p>Anfang</p><p>En");
  const auto document = ReadDocument({folder.File("a.fb2"), false, false, {}}, [](int) {});
  EXPECT_EQ(document.text.text, "Anfang\n\nEn");
  EXPECT_EQ(document.notice, "Die Datei ist beschädigt. Ein Teil des Textes kann fehlen.");
}

// A file that ends too early gives what it has or a sentence.
void ReadCut(const std::string& file, const std::string& ending, std::string_view bytes) {
  WriteFile(file, bytes);
  try {
    const ImportedDocument document = ReadDocument({file, false, false, {}}, [](int) {});
    EXPECT_TRUE(IsValidUtf8(document.text.text)) << ending << bytes.size();
    EXPECT_EQ(ReadImportAnswer(WriteImportAnswer(document)), document);
  } catch (const RuntimeError& error) {
    EXPECT_NE(std::string_view(error.what()), "") << ending << bytes.size();
  }
}

TEST(CutFiles, AreReadAsFarAsTheyGoOrRefused) {
  TemporaryFolder folder;
  constexpr std::size_t kCuts = 24;
  for (const auto& entry : fs::directory_iterator(LORELIN_IMPORT_CORPUS)) {
    const std::string name = entry.path().filename().string();
    if (name.ends_with(".expected")) continue;
    const std::string whole = ReadFile(entry.path().string());
    const std::size_t step = std::max<std::size_t>(whole.size() / kCuts, 64);
    for (std::size_t size = step; size < whole.size(); size += step) {
      ReadCut(folder.File("cut" + entry.path().extension().string()), name,
              std::string_view(whole).substr(0, size));
    }
  }
}

// Of every format; read in this process, as each is read many times.
TEST(TruncatedFile, IsReadOrRefusedWhereverItEnds) {
  constexpr std::size_t kStep = 1024;
  const TemporaryFolder folder;
  for (const char* const name :
       {"reise.epub", "noten-2.epub", "reise.docx", "tabelle-lo.docx", "reise.odt", "noten.fb2",
        "hand.fb2.zip", "reise.html", "reise.md", "reise.pdf", "groff-zwei.pdf"}) {
    const std::string whole = ReadFile(std::string(LORELIN_IMPORT_CORPUS "/") + name);
    ASSERT_FALSE(whole.empty()) << name;
    const std::string path = folder.File(name);
    for (std::size_t size = 0; size < whole.size(); size += kStep) {
      WriteFile(path, whole.substr(0, size));
      try {
        (void)ReadDocument({.path = path}, [](int) {});
      } catch (const RuntimeError& error) {
        EXPECT_TRUE(std::string_view(error.what()).ends_with("."))
            << name << ' ' << size << ": " << error.what();
      }
    }
  }
}

}  // namespace
}  // namespace lorelin
