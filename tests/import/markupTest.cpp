#include <gtest/gtest.h>

#include "import/MarkupTree.h"
#include "import/archive.h"
#include "import/html.h"
#include "import/markdownText.h"
#include "import/markupEncoding.h"
#include "import/markupParser.h"
#include "import/namedEncoding.h"

namespace lorelin {
namespace {

std::string TextOf(const std::string& html) {
  return ReadHtml(html, {}).text.text;
}

TEST(Html, LeavesOutWhatIsNotShown) {
  EXPECT_EQ(TextOf("<p>a<script>x</script><span hidden>y</span><b style='display: none'>z</b>"
                   "<i aria-hidden='true'>w</i> b<a epub:type='noteref' href='#n'>1</a></p>"
                   "<aside epub:type='footnote' id='n'>Note</aside>"),
            "a b");
}

TEST(Html, KeepsNoReadingsAboveCharacters) {
  EXPECT_EQ(TextOf("<p><ruby>漢<rp>(</rp><rt>かん</rt><rp>)</rp></ruby>字</p>"), "漢字");
}

TEST(Html, NumbersItsLists) {
  EXPECT_EQ(TextOf("<ol start=3><li>a<ul><li>x</ul><li value=9><p>b</p><p>c</p><li>d</ol>"),
            "3. a\n• x\n9. b\nc\n10. d");
  EXPECT_EQ(TextOf("<ol type=a><li>x<li>y</ol><ol type=I><li>x<li>y</ol>"), "a. x\nb. y\n\nI. x\nII. y");
}

TEST(Html, ReadsAPageThatLiesInATableAsAPage) {
  EXPECT_EQ(TextOf("<table><tr><td><h1>T</h1><p>a</p></td><td>b</td></tr></table>"), "T\n\na\n\nb");
}

TEST(Html, EndsForAPageOfOpenElements) {
  std::string html;
  for (int i = 0; i < 100000; ++i) html += "<div><b><span>";
  EXPECT_EQ(TextOf(html + "x"), "x");
}

TEST(Html, SaysWhatItIs) {
  const auto document = ReadHtml(
      "<html lang='de-AT'><head><title> Ein\nTitel</title><meta name=author content='A B'></head><body>x",
      {});
  EXPECT_EQ(document.info.title, "Ein Titel");
  EXPECT_EQ(document.info.author, "A B");
  EXPECT_EQ(document.info.language, "de-AT");
}

TEST(MarkupEncoding, IsWhatThePageSays) {
  EXPECT_EQ(DecodeMarkup("<meta charset='windows-1251'>\xC0"), "<meta charset='windows-1251'>А");
  EXPECT_EQ(DecodeMarkup("<meta content='text/html; charset=ISO-8859-1'>\x80"),
            "<meta content='text/html; charset=ISO-8859-1'>€");
  EXPECT_EQ(DecodeMarkup("<?xml version='1.0' encoding='iso-8859-15'?>\xA4"),
            "<?xml version='1.0' encoding='iso-8859-15'?>€");
  EXPECT_EQ(DecodeMarkup("Gr\xF6\xDF"
                         "e"),
            "Größe");
  EXPECT_EQ(DecodeMarkup("<meta charset=no-such>Gr\xF6\xDF"
                         "e"),
            "<meta charset=no-such>Größe");
  EXPECT_EQ(DecodeMarkup("Größ\xC3"), "Größ");
}

TEST(MarkupEncoding, IsWhatTheServerSaysBeforeWhatThePageSays) {
  EXPECT_EQ(DecodeMarkup("<p>\xC0", "windows-1251"), "<p>А");
  EXPECT_EQ(DecodeMarkup("<meta charset='koi8-r'>\xC0", "Windows-1251"), "<meta charset='koi8-r'>А");
  EXPECT_EQ(DecodeMarkup("<meta charset='koi8-r'>\xC0", "no-such"), "<meta charset='koi8-r'>ю");
  // Not every system knows this one.
  if (DecodedBySystem("", "iso-2022-jp")) {
    EXPECT_EQ(DecodeMarkup("\x1B$B$\"\x1B(B", "ISO-2022-JP"), "あ");
  }
  // Many servers say so of pages that they never looked at.
  EXPECT_EQ(DecodeMarkup("<p>Größe", "iso-8859-1"), "<p>Größe");
}

TEST(MarkupParser, ReadsNoEntitiesThatAFileDeclares) {
  const auto tree = ParseXml(
      "<!DOCTYPE a [<!ENTITY x \"boom\"><!ENTITY y SYSTEM "
      "\"file:///etc/passwd\">]><a>1&x;&y;&amp;2&auml;</a>");
  EXPECT_EQ(tree.Root().WholeText(), "1&2ä");
}

TEST(MarkupTree, HasAnEndForWhoGoesThroughIt) {
  MarkupTree tree;
  for (int i = 0; i < 1000; ++i) tree.Open("a");
  tree.AddText("x");
  for (int i = 0; i < 1000; ++i) tree.Close();
  tree.Open("b");
  std::size_t depth = 0;
  for (auto node = tree.Root().FirstChild(); node; node = node.FirstChild()) ++depth;
  EXPECT_LE(depth, MarkupTree::kDeepest + 1);
  EXPECT_EQ(tree.Root().FirstChild().Next().Name(), "b");
}

TEST(Archive, FollowsReferencesButNeverAboveItself) {
  EXPECT_EQ(NameInArchive("OEBPS/text/a.xhtml", "../b%20c.xhtml#x"), "OEBPS/b c.xhtml");
  EXPECT_EQ(NameInArchive("a.opf", "../../../etc/passwd"), "etc/passwd");
  EXPECT_EQ(NameInArchive("OEBPS/a.opf", "/b"), "b");
}

TEST(Markdown, LosesItsFactsNotesAndAttributes) {
  DocumentInfo info;
  EXPECT_EQ(
      PrepareMarkdown(
          "---\ntitle: 'T'\nauthor: A\nlang: de\n---\n# H {#x}\na[^1] `[^1]`\n\n[^1]: n\n    n\n\nb\n", info),
      "# H\na `[^1]`\n\n\nb\n");
  EXPECT_EQ(info, (DocumentInfo{"T", "A", "de", {}}));
}

TEST(Markdown, KeepsCodeAsItIs) {
  DocumentInfo info;
  EXPECT_EQ(PrepareMarkdown("```\n[^1]: x\n# a {#b}\n```\n", info), "```\n[^1]: x\n# a {#b}\n```\n");
  EXPECT_EQ(PrepareMarkdown("---\nno facts\n", info), "---\nno facts\n");
}

TEST(Article, IsFoundAmongMenusAndAdvertisements) {
  const std::string paragraph =
      "<p>Der Rat der Stadt hat am Montag beschlossen, die alte Brücke zu erneuern, weil sie, so die "
      "Gutachter, "
      "nicht mehr sicher ist.</p>";
  const std::string page =
      "<html><head><title>Brücke wird erneuert | Stadtblatt</title></head><body><nav><a href=a>Politik</a> "
      "<a "
      "href=b>Sport</a></nav><div class=werbung>Kaufen Sie jetzt!</div><div id=content><h1>Brücke wird "
      "erneuert</h1>" +
      paragraph + paragraph + "<ul><li><a href=x>Lesen Sie auch: Etwas ganz anderes</a></ul>" + paragraph +
      "</div><div class=comments><p>Ein Kommentar, der lang ist, und gar nichts, aber auch gar nichts "
      "beiträgt, zur "
      "Sache.</p></div><footer>Impressum</footer></body></html>";
  const auto document = ReadHtml(page, {"", true, false, ""});
  EXPECT_EQ(document.info.title, "Brücke wird erneuert");
  EXPECT_TRUE(document.text.text.starts_with("Brücke wird erneuert\n\nDer Rat"));
  EXPECT_TRUE(document.text.text.ends_with("nicht mehr sicher ist."));
  for (const char* word : {"Politik", "Kaufen", "Lesen Sie", "Kommentar", "Impressum"}) {
    EXPECT_EQ(document.text.text.find(word), std::string::npos) << word;
  }
}

TEST(Article, IsTheWholePageWhereThereIsNone) {
  EXPECT_EQ(ReadHtml("<p>Kurz.</p>", {"", true, false, ""}).text.text, "Kurz.");
}

}  // namespace
}  // namespace lorelin
