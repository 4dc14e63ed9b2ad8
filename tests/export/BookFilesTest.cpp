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

TEST(SpokenParagraphs, KeepWhatStandsOut) {
  const std::string text = "Eins.\nÄ zwei  drei. Vier.";
  const CharacterFormat bold{.bold = true};
  const CharacterFormat both{.bold = true, .italic = true};
  // "zwei " is bold, " dr" both, "Vier" bold; what is behind has no format.
  const std::vector<TextRun> formats{{9, {}}, {5, bold}, {3, both}, {4, {}}, {4, bold}};
  const auto paragraphs = MakeSpokenParagraphs(text, {6, 1000}, {}, milliseconds(900), {}, formats);
  ASSERT_EQ(paragraphs.size(), 1U);
  ASSERT_EQ(paragraphs[0].sentences.size(), 2U);
  EXPECT_EQ(paragraphs[0].sentences[0].text, "Ä zwei drei.");
  EXPECT_EQ(paragraphs[0].sentences[0].emphasis,
            (std::vector<Emphasis>{{3, 7, true, false}, {8, 10, true, true}}));
  EXPECT_EQ(paragraphs[0].sentences[1].emphasis, (std::vector<Emphasis>{{0, 4, true, false}}));
}

std::vector<std::string> ItemsOf(std::string_view text) {
  std::vector<std::string> items;
  for (const SpokenParagraph& paragraph : Paragraphs(text, {})) {
    const bool bullets = paragraph.item.kind == ListKind::Bullets;
    const std::string mark = bullets ? "*" : std::to_string(paragraph.item.number);
    for (const SpokenSentence& sentence : paragraph.sentences)
      items.push_back((paragraph.item.kind == ListKind::None ? "" : mark + " ") + sentence.text);
  }
  return items;
}

TEST(SpokenParagraphs, AreItemsWhereTheyBeginAsThoseOfAList) {
  EXPECT_EQ(ItemsOf("Kauf ein:\n\n• Äpfel\n• Brot und Käse\n\nDann:\n\n1. aufstehen\n2. losgehen\n\nEnde."),
            (std::vector<std::string>{"Kauf ein:", "* Äpfel", "* Brot und Käse", "Dann:", "1 aufstehen",
                                      "2 losgehen", "Ende."}));
  EXPECT_EQ(ItemsOf("• Ein Satz. Noch einer.\n• Der dritte."),
            (std::vector<std::string>{"* Ein Satz.", "* Noch einer.", "* Der dritte."}));
}

TEST(SpokenParagraphs, AreNoItemsWhereANumberStandsAlone) {
  for (const char* const text :
       {"1. Mai.", "3. Oktober.\n5. November.", "•", "1984. Ein Jahr.\n1985. Noch eins."})
    for (const SpokenParagraph& paragraph : Paragraphs(text, {}))
      EXPECT_EQ(paragraph.item.kind, ListKind::None) << text;
}

TEST(SpokenParagraphs, KeepTheSoundOfAMark) {
  const auto paragraphs =
      Paragraphs("• Eins.\n• Zwei.", {{{2, 6}, milliseconds(50)}, {{10, 14}, milliseconds(400)}});
  ASSERT_EQ(paragraphs.size(), 2U);
  EXPECT_EQ(paragraphs[0].sentences, (std::vector{Heard("Eins.", 0, 400)}));
  EXPECT_EQ(paragraphs[1].sentences, (std::vector{Heard("Zwei.", 400, 900)}));
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

TEST(BookFiles, ShowWhatStandsOut) {
  SpokenBook book = Book();
  SpokenSentence sentence = Heard("a & b\nc d", 0, 1);
  sentence.emphasis = {{0, 1, true, false}, {4, 7, true, true}, {8, 9, false, true}};
  book.parts[0].paragraphs = {{.sentences = {sentence}, .chapters = {}},
                              {.sentences = {sentence}, .level = 2, .chapters = {}}};
  const std::string page = FileOf(book, "EPUB/text/0001.xhtml");
  EXPECT_TRUE(Has(page,
                  "<p><span id=\"s1\"><strong>a</strong> &amp; <strong><em>b<br/>c</em></strong> "
                  "<em>d</em></span></p>"));
  EXPECT_TRUE(Has(page, "<h2><span id=\"s2\">a &amp; <em>b<br/>c</em> <em>d</em></span></h2>"));
}

TEST(BookFiles, ShowLists) {
  SpokenBook book = Book();
  const auto item = [](const std::string& text, ListItem place) {
    return SpokenParagraph{.sentences = {Heard(text, 0, 1)}, .chapters = {}, .item = place};
  };
  book.parts[0].paragraphs = {item("a", {ListKind::Bullets}),
                              item("b", {ListKind::Bullets}),
                              item("c", {ListKind::Numbers, 1}),
                              item("d", {ListKind::Numbers, 2}),
                              item("e", {}),
                              item("f", {ListKind::Numbers, 3})};
  book.parts[0].paragraphs[1].chapters = {1};
  EXPECT_TRUE(
      Has(FileOf(book, "EPUB/text/0001.xhtml"),
          "<ul>\n<li><span id=\"s1\">a</span></li>\n<li id=\"k1\"><span id=\"s2\">b</span></li>\n</ul>\n"
          "<ol>\n<li><span id=\"s3\">c</span></li>\n<li><span id=\"s4\">d</span></li>\n</ol>\n"
          "<p><span id=\"s5\">e</span></p>\n"
          "<ol start=\"3\">\n<li><span id=\"s6\">f</span></li>\n</ol>\n</section>"));
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
