#include "import/docx.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "import/DocumentBuilder.h"
#include "import/archive.h"
#include "import/docxStyles.h"
#include "import/importErrors.h"
#include "import/markupParser.h"

namespace lorelin {
namespace {

using Node = MarkupTree::Node;
using Gap = DocumentBuilder::Gap;

const std::string kKind = "Das Word-Dokument";

constexpr std::array<std::string_view, 10> kSilent{"w:del",       "w:moveFrom", "w:pPr",       "w:rPr",
                                                   "w:instrText", "w:delText",  "mc:Fallback", "w:sectPr",
                                                   "w:tblPr",     "w:trPr"};

class DocxWalk {
 public:
  DocxWalk(DocumentBuilder& builder, const DocxStyles& styles, DocxLists& lists)
      : builder_(builder), styles_(styles), lists_(lists) {}

  void AddBlocks(Node parent) {
    for (Node child = parent.FirstChild(); child; child = child.Next()) AddBlock(child);
  }

  [[nodiscard]] const std::string& Title() const { return title_; }

 private:
  // How a paragraph is shown.
  struct Look {
    int heading = 0;
    bool title = false;
    bool contents = false;  // of a table of contents
    std::string list;
    int listLevel = 0;
    CharacterFormat format;
    bool hidden = false;
  };

  void AddBlock(Node element) {
    const std::string_view name = element.Name();
    if (name == "w:p") {
      AddParagraph(element);
    } else if (name == "w:tbl") {
      AddTable(element);
    } else if (name == "w:sdt") {
      if (!IsContents(element)) AddBlocks(element);
    } else if (!element.IsText() && !IsSilent(name) && name != "w:sdtPr") {
      AddBlocks(element);
    }
  }

  static bool IsSilent(std::string_view name) {
    return std::find(kSilent.begin(), kSilent.end(), name) != kSilent.end();
  }

  static bool IsContents(Node control) {
    const Node properties = control.Child("w:sdtPr");
    const Node gallery = properties ? properties.Find("w:docPartGallery") : Node();
    return gallery && gallery.Attribute("w:val") == "Table of Contents";
  }

  [[nodiscard]] const DocxStyle* StyleOf(Node properties, std::string_view kind) const {
    const Node style = properties ? properties.Child(kind) : Node();
    const auto found = style ? styles_.find(style.Attribute("w:val")) : styles_.end();
    return found != styles_.end() ? &found->second : nullptr;
  }

  static int Level(Node element) {
    const std::string_view value = element ? element.Attribute("w:val") : std::string_view();
    return value.size() == 1 && value[0] >= '0' && value[0] <= '9' ? value[0] - '0' : 9;
  }

  [[nodiscard]] Look LookOf(Node paragraph) const {
    Look look;
    const Node properties = paragraph.Child("w:pPr");
    if (const DocxStyle* const style = StyleOf(properties, "w:pStyle")) {
      look.heading = style->outlineLevel;
      look.title = style->name == "title";
      look.contents = style->name.starts_with("toc ");
      look.list = style->list;
      look.listLevel = style->listLevel;
      look.format.bold = style->bold && look.heading == 0;
      look.format.italic = style->italic;
      look.hidden = style->hidden;
    }
    if (!properties) return look;
    if (const Node outline = properties.Child("w:outlineLvl")) {
      look.heading = Level(outline) < 9 ? Level(outline) + 1 : 0;
    }
    if (const Node item = properties.Child("w:numPr")) {
      const Node list = item.Child("w:numId");
      if (list) look.list = std::string(list.Attribute("w:val"));
      if (const Node level = item.Child("w:ilvl")) look.listLevel = Level(level);
    }
    return look;
  }

  void AddParagraph(Node paragraph) {
    const Look look = LookOf(paragraph);
    if (look.contents) return;
    const std::string mark =
        look.list.empty() || look.list == "0" ? "" : lists_.NextMark(look.list, look.listLevel);
    if (look.heading > 0) {
      AddHeading(paragraph, look.heading, mark);
    } else if (look.title) {
      AddTitle(paragraph);
    } else {
      AddPlain(paragraph, look, mark);
    }
    AddBoxes();
  }

  void AddHeading(Node paragraph, int level, const std::string& mark) {
    builder_.BeginHeading(level);
    builder_.Text(mark);
    AddInlines(paragraph, builder_.Format());
    builder_.EndHeading();
    inList_ = false;
  }

  // Shown as a heading, but everything is below it.
  void AddTitle(Node paragraph) {
    const std::size_t chapters = builder_.Info().chapters.size();
    AddHeading(paragraph, 1, {});
    auto& all = builder_.Info().chapters;
    if (all.size() == chapters) return;
    if (title_.empty()) title_ = all.back().title;
    all.pop_back();
  }

  void AddPlain(Node paragraph, const Look& look, const std::string& mark) {
    const bool item = !mark.empty();
    builder_.Break(item && inList_ ? Gap::Line : Gap::Paragraph);
    inList_ = item;
    const ParagraphFormat before = builder_.Paragraph();
    if (item) builder_.SetParagraph({.leftIndent = 360 * look.listLevel});
    builder_.Mark(mark);
    if (!look.hidden) AddInlines(paragraph, look.format);
    builder_.DropMark();
    builder_.SetParagraph(before);
    builder_.Break(item ? Gap::Line : Gap::Paragraph);
  }

  // Text in frames comes behind the paragraph that they hang on.
  void AddBoxes() {
    for (const Node box : std::exchange(boxes_, {})) AddBlocks(box);
  }

  void AddInlines(Node parent, const CharacterFormat& format) {
    for (Node child = parent.FirstChild(); child; child = child.Next()) AddInline(child, format);
  }

  void AddInline(Node element, const CharacterFormat& format) {
    const std::string_view name = element.Name();
    if (name == "w:r") {
      AddRun(element, format);
    } else if (name == "w:t" || name == "m:t") {
      builder_.SetFormat(format);
      builder_.Text(element.WholeText());
    } else if (name == "w:tab" || name == "w:ptab") {
      builder_.Text(" ");
    } else if (name == "w:br" || name == "w:cr") {
      builder_.LineBreak();
    } else if (name == "w:noBreakHyphen") {
      builder_.SetFormat(format);
      builder_.Text("-");
    } else if (name == "w:txbxContent") {
      boxes_.push_back(element);
    } else if (!element.IsText() && !IsSilent(name) && name != "w:sdtPr") {
      AddInlines(element, format);
    }
  }

  void AddRun(Node run, CharacterFormat format) {
    if (const Node properties = run.Child("w:rPr")) {
      const DocxStyle* const style = StyleOf(properties, "w:rStyle");
      if (IsOn(properties, "w:vanish") || (style != nullptr && style->hidden)) return;
      Change(format, properties, style);
    }
    AddInlines(run, format);
  }

  static void Change(CharacterFormat& format, Node properties, const DocxStyle* style) {
    if (style != nullptr && style->bold) format.bold = true;
    if (style != nullptr && style->italic) format.italic = true;
    if (properties.Child("w:b")) format.bold = IsOn(properties, "w:b");
    if (properties.Child("w:i")) format.italic = IsOn(properties, "w:i");
    if (IsOn(properties, "w:u")) format.underline = true;
    if (IsOn(properties, "w:strike") || IsOn(properties, "w:dstrike")) format.strikeThrough = true;
    const Node position = properties.Child("w:vertAlign");
    if (position && position.Attribute("w:val") == "superscript")
      format.position = ScriptPosition::Superscript;
    if (position && position.Attribute("w:val") == "subscript") format.position = ScriptPosition::Subscript;
  }

  void AddTable(Node table) {
    builder_.Break(Gap::Paragraph);
    AddRows(table);
    builder_.Break(Gap::Paragraph);
    inList_ = false;
  }

  void AddRows(Node part) {
    for (Node row = part.FirstChild(); row; row = row.Next()) {
      if (row.Is("w:tr")) {
        AddRow(row);
      } else if (row.Is("w:sdt") || row.Is("w:sdtContent") || row.Is("w:customXml")) {
        AddRows(row);
      }
    }
  }

  void AddRow(Node row) {
    const Node properties = row.Child("w:trPr");
    if (properties && properties.Child("w:del")) return;
    builder_.BeginRow();
    AddCells(row);
    builder_.EndRow();
  }

  void AddCells(Node part) {
    for (Node cell = part.FirstChild(); cell; cell = cell.Next()) {
      if (cell.Is("w:tc")) {
        builder_.BeginCell();
        AddBlocks(cell);
      } else if (cell.Is("w:sdt") || cell.Is("w:sdtContent") || cell.Is("w:customXml")) {
        AddCells(cell);
      }
    }
  }

  DocumentBuilder& builder_;
  const DocxStyles& styles_;
  DocxLists& lists_;
  std::vector<Node> boxes_;
  std::string title_;
  bool inList_ = false;
};

std::string FactOf(const MarkupTree& tree, std::string_view name) {
  const Node fact = tree.Root().Find(name);
  return fact ? fact.WholeText() : std::string();
}

// Where the document lies, by the relations of the package.
std::string MainPart(const ArchiveFiles& files) {
  const MarkupTree tree = ParseXml(FileOf(files, "_rels/.rels"));
  for (Node node = tree.Root(); node; node = node.Following(tree.Root())) {
    if (node.Is("Relationship") && node.Attribute("Type").ends_with("/officeDocument")) {
      return NameInArchive("", node.Attribute("Target"));
    }
  }
  return "word/document.xml";
}

bool IsWanted(std::string_view name) {
  return name == "_rels/.rels" || name == "docProps/core.xml" ||
         (name.ends_with(".xml") && !name.starts_with("customXml/") &&
          name.find("media/") == std::string_view::npos && name.find("theme/") == std::string_view::npos);
}

}  // namespace

ImportedDocument ReadDocx(const ImportRequest& request) {
  const ArchiveFiles files = ReadArchive(request.path, kKind, &IsWanted);
  const std::string main = MainPart(files);
  if (!files.contains(main)) throw DamagedDocument(kKind);
  const DocxStyles styles = ReadDocxStyles(FileOf(files, NameInArchive(main, "styles.xml")));
  DocxLists lists(FileOf(files, NameInArchive(main, "numbering.xml")));
  const MarkupTree tree = ParseXml(FileOf(files, main));
  const MarkupTree facts = ParseXml(FileOf(files, "docProps/core.xml"));
  DocumentBuilder builder;
  DocxWalk walk(builder, styles, lists);
  walk.AddBlocks(tree.Root());
  if (builder.Characters() == 0) throw NoTextInDocument();
  if (tree.IsDamaged()) builder.Document().notice = kDamagedNotice;
  builder.Info().title = FactOf(facts, "dc:title");
  if (OneLine(builder.Info().title).empty()) builder.Info().title = walk.Title();
  builder.Info().author = FactOf(facts, "dc:creator");
  builder.Info().language = FactOf(facts, "dc:language");
  return builder.Finish();
}

}  // namespace lorelin
