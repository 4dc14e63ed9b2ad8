#include "import/odt.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "import/DocumentBuilder.h"
#include "import/archive.h"
#include "import/fileBytes.h"
#include "import/importErrors.h"
#include "import/listMarks.h"
#include "import/markupParser.h"

namespace lorelin {
namespace {

using Node = MarkupTree::Node;
using Gap = DocumentBuilder::Gap;

const std::string kKind = "Das OpenDocument-Dokument";
constexpr std::size_t kMostFlat = std::size_t{48} << 20U;

constexpr std::array<std::string_view, 17> kSilent{"text:note",
                                                   "text:note-ref",
                                                   "office:annotation",
                                                   "office:annotation-end",
                                                   "text:tracked-changes",
                                                   "text:table-of-content",
                                                   "text:sequence-decls",
                                                   "text:variable-decls",
                                                   "text:user-field-decls",
                                                   "office:forms",
                                                   "text:hidden-text",
                                                   "text:hidden-paragraph",
                                                   "text:ruby-text",
                                                   "svg:title",
                                                   "svg:desc",
                                                   "draw:object",
                                                   "office:binary-data"};

int NumberOf(std::string_view text, int otherwise) {
  int number = otherwise;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() ? std::clamp(number, 0, 100'000) : otherwise;
}

struct Style {
  std::string parent;
  bool bold = false;
  bool italic = false;
  bool hidden = false;
  std::string list;
};

struct ListLevel {
  std::string kind;  // "" for a bullet
  std::string prefix;
  std::string suffix;
  int start = 1;
};

std::string KindOf(std::string_view format) {
  if (format == "a") return "lowerLetter";
  if (format == "A") return "upperLetter";
  if (format == "i") return "lowerRoman";
  return format == "I" ? "upperRoman" : "decimal";
}

// The styles of a document by their names.
class OdtStyles {
 public:
  void Add(Node top) {
    for (Node node = top; node; node = node.Following(top)) {
      if (node.Is("style:style")) AddStyle(node);
      if (node.Is("text:list-style")) AddList(node);
    }
  }

  // With what its parents say.
  [[nodiscard]] Style Of(std::string_view name) const {
    Style all;
    constexpr int kLongest = 20;
    for (int i = 0; i < kLongest; ++i) {
      const auto found = styles_.find(name);
      if (found == styles_.end()) break;
      all.bold |= found->second.bold;
      all.italic |= found->second.italic;
      all.hidden |= found->second.hidden;
      if (all.list.empty()) all.list = found->second.list;
      if (all.parent.empty()) all.parent = found->second.parent;
      name = found->second.parent;
    }
    return all;
  }

  [[nodiscard]] const ListLevel* List(std::string_view name, int level) const {
    const auto found = lists_.find(name);
    if (found == lists_.end()) return nullptr;
    const auto own = found->second.find(level);
    return own != found->second.end() ? &own->second : nullptr;
  }

 private:
  void AddStyle(Node node) {
    Style& style = styles_[std::string(node.Attribute("style:name"))];
    style.parent = node.Attribute("style:parent-style-name");
    style.list = node.Attribute("style:list-style-name");
    const Node text = node.Child("style:text-properties");
    if (!text) return;
    const std::string_view weight = text.Attribute("fo:font-weight");
    style.bold = weight == "bold" || NumberOf(weight, 0) >= 600;
    style.italic = text.Attribute("fo:font-style") == "italic";
    style.hidden = text.Attribute("text:display") == "none";
  }

  void AddList(Node node) {
    auto& levels = lists_[std::string(node.Attribute("style:name"))];
    for (Node part = node.FirstChild(); part; part = part.Next()) {
      const bool numbered = part.Is("text:list-level-style-number");
      if (!numbered && !part.Is("text:list-level-style-bullet")) continue;
      ListLevel& level = levels[NumberOf(part.Attribute("text:level"), 1)];
      if (!numbered) continue;
      level = {KindOf(part.Attribute("style:num-format")), std::string(part.Attribute("style:num-prefix")),
               std::string(part.Attribute("style:num-suffix")),
               NumberOf(part.Attribute("text:start-value"), 1)};
      if (part.Attribute("style:num-format").empty()) level.kind = "none";
    }
  }

  std::map<std::string, Style, std::less<>> styles_;
  std::map<std::string, std::map<int, ListLevel>, std::less<>> lists_;
};

class OdtWalk {
 public:
  OdtWalk(DocumentBuilder& builder, const OdtStyles& styles) : builder_(builder), styles_(styles) {}

  void AddBlocks(Node parent) {
    for (Node child = parent.FirstChild(); child; child = child.Next()) AddBlock(child);
  }

  [[nodiscard]] const std::string& Title() const { return title_; }

 private:
  static bool IsSilent(std::string_view name) {
    return std::find(kSilent.begin(), kSilent.end(), name) != kSilent.end();
  }

  void AddBlock(Node element) {
    const std::string_view name = element.Name();
    if (name == "text:p") {
      AddParagraph(element);
    } else if (name == "text:h") {
      AddHeading(element, NumberOf(element.Attribute("text:outline-level"), 1));
    } else if (name == "text:list") {
      AddList(element);
    } else if (name == "table:table") {
      builder_.Break(Gap::Paragraph);
      AddRows(element);
      builder_.Break(Gap::Paragraph);
    } else if (!element.IsText() && !IsSilent(name) && element.Attribute("text:display") != "none") {
      AddBlocks(element);
    }
  }

  void AddHeading(Node element, int level) {
    builder_.BeginHeading(level);
    AddInlines(element);
    builder_.EndHeading();
    AddBoxes();
  }

  void AddParagraph(Node element) {
    const Style style = styles_.Of(element.Attribute("text:style-name"));
    if (style.hidden) return;
    if (IsTitle(element.Attribute("text:style-name"), style)) return AddTitle(element);
    const CharacterFormat before = builder_.Format();
    SetFormat(before, style);
    builder_.Break(levels_ > 0 ? Gap::Line : Gap::Paragraph);
    AddInlines(element);
    builder_.SetFormat(before);
    builder_.Break(levels_ > 0 ? Gap::Line : Gap::Paragraph);
    AddBoxes();
  }

  static bool IsTitle(std::string_view name, const Style& style) {
    return name == "Title" || style.parent == "Title";
  }

  // Shown as a heading, but everything is below it.
  void AddTitle(Node element) {
    const std::size_t chapters = builder_.Info().chapters.size();
    AddHeading(element, 1);
    auto& all = builder_.Info().chapters;
    if (all.size() == chapters) return;
    if (title_.empty()) title_ = all.back().title;
    all.pop_back();
  }

  void SetFormat(CharacterFormat format, const Style& style) {
    format.bold |= style.bold;
    format.italic |= style.italic;
    builder_.SetFormat(format);
  }

  // Text in frames comes behind the paragraph that they hang on.
  void AddBoxes() {
    for (const Node box : std::exchange(boxes_, {})) AddBlocks(box);
  }

  void AddInlines(Node parent) {
    for (Node child = parent.FirstChild(); child; child = child.Next()) AddInline(child);
  }

  void AddInline(Node element) {
    const std::string_view name = element.Name();
    if (element.IsText()) {
      builder_.Text(element.Text());
    } else if (name == "text:s" || name == "text:tab") {
      builder_.Text(" ");
    } else if (name == "text:line-break") {
      builder_.LineBreak();
    } else if (name == "draw:text-box") {
      boxes_.push_back(element);
    } else if (name == "text:span") {
      AddSpan(element);
    } else if (!IsSilent(name)) {
      AddInlines(element);
    }
  }

  void AddSpan(Node element) {
    const Style style = styles_.Of(element.Attribute("text:style-name"));
    if (style.hidden) return;
    const CharacterFormat before = builder_.Format();
    SetFormat(before, style);
    AddInlines(element);
    builder_.SetFormat(before);
  }

  void AddList(Node list) {
    const std::string style =
        list.HasAttribute("text:style-name") ? std::string(list.Attribute("text:style-name")) : list_;
    builder_.Break(levels_ > 0 ? Gap::Line : Gap::Paragraph);
    const std::string before = std::exchange(list_, style);
    const ParagraphFormat look = builder_.Paragraph();
    if (levels_++ > 0) builder_.SetParagraph({.leftIndent = std::min(360 * (levels_ - 1), 3600)});
    AddItems(list, style);
    --levels_;
    builder_.SetParagraph(look);
    list_ = before;
    builder_.Break(levels_ > 0 ? Gap::Line : Gap::Paragraph);
  }

  void AddItems(Node list, const std::string& style) {
    const ListLevel* const level = styles_.List(style, levels_);
    // A list that goes on may do so after headings and pictures.
    int& count = counts_[style + "/" + std::to_string(levels_)];
    if (list.Attribute("text:continue-numbering") != "true" && !list.HasAttribute("text:continue-list"))
      count = 0;
    for (Node item = list.FirstChild(); item; item = item.Next()) {
      if (item.Is("text:list-item")) {
        const int start = level != nullptr ? level->start : 1;
        count = NumberOf(item.Attribute("text:start-value"), count == 0 ? start : count + 1);
        if (HasOwnText(item)) builder_.Mark(MarkOf(level, count));
      }
      if (!item.IsText()) AddBlocks(item);
      builder_.DropMark();
    }
  }

  // An item that holds only another list or a heading has no mark of its own.
  static bool HasOwnText(Node item) {
    Node first = item.FirstChild();
    while (first && (first.IsText() || first.Is("text:soft-page-break"))) first = first.Next();
    return first && first.Is("text:p");
  }

  static std::string MarkOf(const ListLevel* level, int count) {
    if (level == nullptr || level->kind.empty()) return "• ";
    if (level->kind == "none") return {};
    return level->prefix + ListNumber(count, level->kind) + level->suffix + " ";
  }

  void AddRows(Node part) {
    for (Node row = part.FirstChild(); row; row = row.Next()) {
      if (row.Is("table:table-row")) {
        builder_.BeginRow();
        for (Node cell = row.FirstChild(); cell; cell = cell.Next()) {
          if (!cell.Is("table:table-cell")) continue;
          builder_.BeginCell();
          AddBlocks(cell);
        }
        builder_.EndRow();
      } else if (row.Is("table:table-header-rows") || row.Is("table:table-rows") ||
                 row.Is("table:table-row-group")) {
        AddRows(row);
      }
    }
  }

  DocumentBuilder& builder_;
  const OdtStyles& styles_;
  std::vector<Node> boxes_;
  std::map<std::string, int, std::less<>> counts_;
  std::string list_;
  std::string title_;
  int levels_ = 0;  // of lists within each other
};

std::string FactOf(const std::vector<Node>& places, std::string_view name) {
  for (const Node place : places) {
    if (const Node fact = place.Find(name)) return fact.WholeText();
  }
  return {};
}

ImportedDocument Read(const MarkupTree& tree, Node styleFile, Node meta) {
  const Node content = tree.Root();
  OdtStyles styles;
  styles.Add(styleFile);
  styles.Add(content);
  DocumentBuilder builder;
  OdtWalk walk(builder, styles);
  const Node body = content.Find("office:text");
  if (!body) throw DamagedDocument(kKind);
  walk.AddBlocks(body);
  if (builder.Characters() == 0) throw NoTextInDocument();
  if (tree.IsDamaged()) builder.Document().notice = kDamagedNotice;
  builder.Info().title = FactOf({meta}, "dc:title");
  if (OneLine(builder.Info().title).empty()) builder.Info().title = walk.Title();
  builder.Info().author = FactOf({meta}, "meta:initial-creator");
  if (builder.Info().author.empty()) builder.Info().author = FactOf({meta}, "dc:creator");
  builder.Info().language = FactOf({meta}, "dc:language");
  return builder.Finish();
}

void RefuseEncrypted(const ArchiveFiles& files) {
  const MarkupTree manifest = ParseXml(FileOf(files, "META-INF/manifest.xml"));
  if (manifest.Root().Find("manifest:encryption-data")) {
    throw ImportError(
        kKind +
        " ist mit einem Kennwort geschützt. Bitte speichern Sie es ohne Kennwort und öffnen Sie es dann.");
  }
}

bool IsWanted(std::string_view name) {
  return name == "content.xml" || name == "styles.xml" || name == "meta.xml" ||
         name == "META-INF/manifest.xml";
}

}  // namespace

ImportedDocument ReadOdt(const ImportRequest& request) {
  const ArchiveFiles files = ReadArchive(request.path, kKind, &IsWanted);
  RefuseEncrypted(files);
  if (!files.contains("content.xml")) throw DamagedDocument(kKind);
  const MarkupTree content = ParseXml(FileOf(files, "content.xml"));
  const MarkupTree styles = ParseXml(FileOf(files, "styles.xml"));
  const MarkupTree meta = ParseXml(FileOf(files, "meta.xml"));
  return Read(content, styles.Root(), meta.Root());
}

ImportedDocument ReadFlatOdt(const ImportRequest& request) {
  const MarkupTree tree = ParseXml(FileBytes(request.path, kMostFlat));
  return Read(tree, tree.Root(), tree.Root());
}

}  // namespace lorelin
