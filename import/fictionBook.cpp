#include "import/fictionBook.h"

#include <string>

#include "import/DocumentBuilder.h"
#include "import/archive.h"
#include "import/fileBytes.h"
#include "import/importErrors.h"
#include "import/markupParser.h"

namespace lorelin {
namespace {

using Node = MarkupTree::Node;
using Gap = DocumentBuilder::Gap;

const std::string kKind = "Das FictionBook";
constexpr std::size_t kMostBytes = std::size_t{64} << 20U;

class FictionBookWalk {
 public:
  explicit FictionBookWalk(DocumentBuilder& builder) : builder_(builder) {}

  void AddBlocks(Node parent) {
    for (Node child = parent.FirstChild(); child; child = child.Next()) AddBlock(child);
  }

 private:
  void AddBlock(Node element) {
    const std::string_view name = element.Name();
    if (name == "title") {
      AddTitle(element);
    } else if (name == "section") {
      ++level_;
      AddBlocks(element);
      --level_;
    } else if (name == "p" || name == "text-author" || name == "date") {
      AddLine(element, Gap::Paragraph);
    } else if (name == "subtitle") {
      AddSubtitle(element);
    } else if (name == "v") {
      AddLine(element, Gap::Line);
    } else if (name == "tr") {
      AddRow(element);
    } else if (name == "cite" || name == "epigraph" || name == "poem" || name == "annotation") {
      AddIndented(element);
    } else if (name == "stanza" || name == "table") {
      builder_.Break(Gap::Paragraph);
      AddBlocks(element);
      builder_.Break(Gap::Paragraph);
    }
  }

  void AddTitle(Node title) {
    const std::size_t chapters = builder_.Info().chapters.size();
    builder_.BeginHeading(level_);
    for (Node line = title.FirstChild(); line; line = line.Next()) {
      AddInlines(line);
      builder_.Text(" ");
    }
    builder_.EndHeading();
    // That of the whole book is no chapter beside those of its sections.
    if (level_ == 0 && title.Parent().Child("section")) builder_.Info().chapters.resize(chapters);
  }

  void AddLine(Node element, Gap gap) {
    builder_.Break(gap);
    AddInlines(element);
    builder_.Break(gap);
  }

  void AddSubtitle(Node element) {
    const CharacterFormat before = builder_.Format();
    CharacterFormat bold = before;
    bold.bold = true;
    builder_.SetFormat(bold);
    AddLine(element, Gap::Paragraph);
    builder_.SetFormat(before);
  }

  void AddIndented(Node element) {
    const ParagraphFormat before = builder_.Paragraph();
    builder_.SetParagraph({.leftIndent = 360});
    AddBlocks(element);
    builder_.SetParagraph(before);
  }

  void AddRow(Node row) {
    builder_.BeginRow();
    for (Node cell = row.FirstChild(); cell; cell = cell.Next()) {
      if (cell.IsText()) continue;
      builder_.BeginCell();
      AddInlines(cell);
    }
    builder_.EndRow();
  }

  void AddInlines(Node parent) {
    for (Node child = parent.FirstChild(); child; child = child.Next()) AddInline(child);
  }

  void AddInline(Node node) {
    if (node.IsText()) return builder_.Text(node.Text());
    const std::string_view name = node.Name();
    if (name == "image" || (name == "a" && node.Attribute("type") == "note")) return;
    const CharacterFormat before = builder_.Format();
    CharacterFormat format = before;
    if (name == "strong") format.bold = true;
    if (name == "emphasis") format.italic = true;
    if (name == "strikethrough") format.strikeThrough = true;
    if (name == "sup") format.position = ScriptPosition::Superscript;
    if (name == "sub") format.position = ScriptPosition::Subscript;
    builder_.SetFormat(format);
    AddInlines(node);
    builder_.SetFormat(before);
  }

  DocumentBuilder& builder_;
  int level_ = 0;  // of sections within each other
};

std::string NameOf(Node person) {
  std::string name;
  for (const char* part : {"first-name", "middle-name", "last-name"}) {
    if (const Node found = person.Child(part)) name += found.WholeText() + " ";
  }
  if (OneLine(name).empty()) {
    if (const Node found = person.Child("nickname")) name = found.WholeText();
  }
  return OneLine(name);
}

void TakeInfo(Node top, DocumentInfo& info) {
  const Node facts = top.Find("title-info");
  if (!facts) return;
  for (Node fact = facts.FirstChild(); fact; fact = fact.Next()) {
    if (fact.Is("book-title")) info.title = fact.WholeText();
    if (fact.Is("lang")) info.language = fact.WholeText();
    if (fact.Is("author")) info.author.append(info.author.empty() ? "" : ", ").append(NameOf(fact));
  }
}

ImportedDocument Read(std::string_view bytes) {
  const MarkupTree tree = ParseXml(bytes);
  const Node book = tree.Root().Child("FictionBook");
  if (!book) throw DamagedDocument(kKind);
  DocumentBuilder builder;
  TakeInfo(book, builder.Info());
  FictionBookWalk walk(builder);
  for (Node body = book.FirstChild(); body; body = body.Next()) {
    const std::string_view name = body.Attribute("name");
    if (body.Is("body") && name != "notes" && name != "comments" && name != "footnotes") walk.AddBlocks(body);
  }
  if (builder.Characters() == 0) throw NoTextInDocument();
  if (tree.IsDamaged()) builder.Document().notice = kDamagedNotice;
  return builder.Finish();
}

}  // namespace

ImportedDocument ReadFictionBook(const ImportRequest& request) {
  return Read(FileBytes(request.path, kMostBytes));
}

ImportedDocument ReadZippedFictionBook(const ImportRequest& request) {
  const ArchiveFiles files =
      ReadArchive(request.path, kKind, [](std::string_view name) { return name.ends_with(".fb2"); });
  if (files.empty()) throw DamagedDocument(kKind);
  return Read(files.begin()->second);
}

}  // namespace lorelin
