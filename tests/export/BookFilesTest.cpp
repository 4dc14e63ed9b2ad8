#include "export/bookFiles.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lorelin {
namespace {

using std::chrono::milliseconds;

std::vector<SpokenParagraph> Paragraphs(std::string_view text, const std::vector<TimedWord>& words,
                                        const std::vector<Chapter>& chapters = {}) {
  return MakeSpokenParagraphs(text, {0, 1000}, words, milliseconds(900), chapters);
}

SpokenSentence Heard(const std::string& text, int begin, int end) {
  return {text, SoundClip{milliseconds(begin), milliseconds(end)}};
}

TEST(SpokenParagraphs, HoldEverySentenceWithItsSound) {
  const auto paragraphs = Paragraphs("Kapitel\nEins ist da. Zwei ist da.\n\n***\n\nDrei.",
                                     {{{0, 7}, milliseconds(20)},
                                      {{8, 12}, milliseconds(100)},
                                      {{21, 25}, milliseconds(300)},
                                      {{40, 44}, milliseconds(500)}},
                                     {{"Kapitel", 1, 0}, {"Etwas anderes", 2, 40}});
  ASSERT_EQ(paragraphs.size(), 4U);
  EXPECT_EQ(paragraphs[0].level, 1);
  EXPECT_EQ(paragraphs[0].chapters, (std::vector<std::size_t>{0}));
  EXPECT_EQ(paragraphs[0].sentences, (std::vector{Heard("Kapitel", 0, 100)}));
  EXPECT_EQ(paragraphs[1].sentences,
            (std::vector{Heard("Eins ist da.", 100, 300), Heard("Zwei ist da.", 300, 500)}));
  EXPECT_EQ(paragraphs[2].sentences, (std::vector{SpokenSentence{"***", std::nullopt}}));
  EXPECT_EQ(paragraphs[3].sentences, (std::vector{Heard("Drei.", 500, 900)}));
  EXPECT_EQ(paragraphs[3].level, 0);
  EXPECT_EQ(paragraphs[3].chapters, (std::vector<std::size_t>{1}));
}

TEST(SpokenParagraphs, KeepTheLinesOfASentence) {
  const auto paragraphs = Paragraphs("Wer reitet so spät \n\tdurch Nacht und Wind?", {});
  ASSERT_EQ(paragraphs.size(), 1U);
  EXPECT_EQ(paragraphs[0].sentences[0].text, "Wer reitet so spät\ndurch Nacht und Wind?");
}

TEST(SpokenParagraphs, BelongToTheChapterInWhoseGapTheyFollow) {
  const auto paragraphs = Paragraphs("Eins.\n\n\nZwei.", {}, {{"Zwei.", 1, 6}});
  ASSERT_EQ(paragraphs.size(), 2U);
  EXPECT_TRUE(paragraphs[0].chapters.empty());
  EXPECT_EQ(paragraphs[1].level, 1);
}

SpokenBook Book() {
  SpokenBook book;
  book.title = "Grimm & <Co>";
  book.author = "Jemand";
  book.language = "de-AT";
  book.identifier = "urn:uuid:1";
  book.chapters = {{"Teil", 1, 0}, {"Eins", 2, 0}, {"Zwei", 1, 9}};
  book.parts = {{"Teil", {{.sentences = {Heard("A \x01& <b>", 0, 1500)}, .level = 1, .chapters = {0, 1}}}},
                {"Zwei", {{.sentences = {{"***", std::nullopt}}, .level = 9, .chapters = {2}}}}};
  return book;
}

std::string FileOf(const SpokenBook& book, const std::string& name) {
  const auto files = MakeBookFiles(book);
  const auto found = std::ranges::find(files, name, &BookFile::name);
  return found == files.end() ? std::string() : found->bytes;
}

bool Has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(BookFiles, BeginWithTheirKind) {
  EXPECT_EQ(MakeBookFiles(Book()).front(), (BookFile{"mimetype", "application/epub+zip"}));
}

TEST(BookFiles, SayWhatTheBookIsAndHowLong) {
  const std::string package = FileOf(Book(), "EPUB/package.opf");
  EXPECT_TRUE(Has(package, "<dc:title>Grimm &amp; &lt;Co&gt;</dc:title>"));
  EXPECT_TRUE(Has(package, "<dc:creator>Jemand</dc:creator>"));
  EXPECT_TRUE(Has(package, "<dc:language>de-AT</dc:language>"));
  EXPECT_TRUE(Has(package, "<meta property=\"dcterms:modified\">1970-01-01T00:00:00Z</meta>"));
  EXPECT_TRUE(Has(package, "<meta property=\"media:duration\" refines=\"#o0001\">0:00:01.500</meta>"));
  EXPECT_TRUE(Has(package, "<meta property=\"media:duration\">0:00:01.500</meta>"));
  EXPECT_TRUE(Has(package, "media:active-class"));
}

TEST(BookFiles, LeaveOutTheSoundOfWhatIsSilent) {
  EXPECT_NE(FileOf(Book(), "EPUB/overlays/0001.smil"), "");
  EXPECT_EQ(FileOf(Book(), "EPUB/overlays/0002.smil"), "");
  EXPECT_FALSE(Has(FileOf(Book(), "EPUB/package.opf"), "audio/0002.mp3"));
}

TEST(BookFiles, TieSentencesToTheirSound) {
  EXPECT_TRUE(Has(FileOf(Book(), "EPUB/text/0001.xhtml"),
                  "<h1 id=\"k0\"><a id=\"k1\"></a><span id=\"s1\">A &amp; &lt;b&gt;</span></h1>"));
  EXPECT_TRUE(Has(FileOf(Book(), "EPUB/text/0002.xhtml"), "<h6 id=\"k2\"><span id=\"s1\">***</span></h6>"));
  EXPECT_TRUE(Has(FileOf(Book(), "EPUB/overlays/0001.smil"),
                  "<text src=\"../text/0001.xhtml#s1\"/><audio src=\"../audio/0001.mp3\" "
                  "clipBegin=\"0:00:00.000\" clipEnd=\"0:00:01.500\"/>"));
}

TEST(BookFiles, ListTheContentsByTheirLevels) {
  EXPECT_TRUE(Has(FileOf(Book(), "EPUB/nav.xhtml"),
                  "<ol>\n<li><a href=\"text/0001.xhtml#k0\">Teil</a><ol>\n"
                  "<li><a href=\"text/0001.xhtml#k1\">Eins</a></li>\n</ol>\n</li>\n"
                  "<li><a href=\"text/0002.xhtml#k2\">Zwei</a></li>\n</ol>\n"));
}

TEST(BookFiles, SpeakGermanWhenTheBookSaysNothingSensible) {
  for (const auto* const language : {"", "deutsch", "d", "de-", "12", "de_DE"}) {
    SpokenBook book = Book();
    book.language = language;
    EXPECT_TRUE(Has(FileOf(book, "EPUB/package.opf"), "<dc:language>de</dc:language>")) << language;
  }
}

}  // namespace
}  // namespace lorelin
