#include "import/htmlText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>
#include <vector>

#include "base/text.h"
#include "import/listMarks.h"

namespace lorelin {
namespace {

using Node = MarkupTree::Node;
using Gap = DocumentBuilder::Gap;

template <std::size_t N>
bool IsOneOf(std::string_view name, const std::array<std::string_view, N>& names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

constexpr std::array<std::string_view, 27> kSilent{
    "head",       "script",         "style",    "template", "noscript", "iframe",  "object",
    "svg",        "audio",          "video",    "canvas",   "select",   "option",  "button",
    "input",      "textarea",       "datalist", "img",      "rt",       "rp",      "rtc",
    "annotation", "annotation-xml", "map",      "embed",    "noframes", "progress"};
constexpr std::array<std::string_view, 30> kParagraphs{
    "p",    "div",    "section", "article", "main",       "header", "footer",  "aside",   "nav", "figure",
    "ul",   "ol",     "dl",      "table",   "blockquote", "pre",    "address", "form",    "hr",  "fieldset",
    "body", "center", "details", "hgroup",  "menu",       "dir",    "search",  "listing", "xmp", "html"};
constexpr std::array<std::string_view, 9> kLines{"li",     "dt",      "dd",         "tr",    "caption",
                                                 "legend", "summary", "figcaption", "option"};
constexpr std::array<std::string_view, 6> kNoteKinds{"footnote",  "footnotes", "rearnote",
                                                     "rearnotes", "endnote",   "endnotes"};

int HeadingLevel(std::string_view name) {
  return name.size() == 2 && name[0] == 'h' && name[1] >= '1' && name[1] <= '6' ? name[1] - '0' : 0;
}

// A declaration of the element's own style, without blanks.
bool HasStyle(Node element, std::string_view declaration) {
  std::string style = LowerAscii(element.Attribute("style"));
  ReplaceAll(style, " ", "");
  const auto at = (";" + style + ";").find(std::string(";").append(declaration));
  return at != std::string::npos;
}

bool IsNote(Node element) {
  const std::string_view type = element.Attribute("epub:type");
  const std::string_view role = element.Attribute("role");
  if (HasWord(type, "noteref") || HasWord(type, "pagebreak") || HasWord(role, "doc-noteref") ||
      HasWord(role, "doc-pagebreak") || HasWord(role, "doc-backlink")) {
    return true;
  }
  return std::any_of(kNoteKinds.begin(), kNoteKinds.end(), [&](std::string_view kind) {
    return HasWord(type, kind) || HasWord(role, "doc-" + std::string(kind));
  });
}

// Marks of notes as programs write them that know no names for their purpose.
bool IsNoteByClass(Node element) {
  const std::string_view kind = element.Attribute("class");
  if (kind.empty()) return false;
  return HasWord(kind, "footnote-ref") || HasWord(kind, "footnotes") || HasWord(kind, "footnote-back") ||
         HasWord(kind, "footnote-backref") || HasWord(kind, "footnoteref") || HasWord(kind, "noteref") ||
         HasWord(kind, "sdfootnoteanc") || HasWord(kind, "sdendnoteanc") || HasWord(kind, "mw-editsection");
}

int NumberOf(std::string_view text, int otherwise) {
  int number = otherwise;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() ? std::clamp(number, -1'000'000, 1'000'000) : otherwise;
}

class HtmlWalk {
 public:
  HtmlWalk(DocumentBuilder& builder, std::string anchorPrefix)
      : builder_(builder), prefix_(std::move(anchorPrefix)) {}

  void Add(Node node) {
    if (node.IsText()) {
      preformatted_ ? builder_.Preformatted(node.Text()) : builder_.Text(node.Text());
    } else if (!IsOneOf(node.Name(), kSilent) && !IsHiddenHtml(node)) {
      AddAnchor(node);
      AddElement(node);
    }
  }

 private:
  void AddAnchor(Node element) {
    for (const char* attribute : {"id", "name"}) {
      const std::string_view name = element.Attribute(attribute);
      if (!name.empty()) builder_.Anchor(prefix_ + std::string(name));
    }
  }

  void AddChildren(Node element) {
    for (Node child = element.FirstChild(); child; child = child.Next()) Add(child);
  }

  void AddElement(Node element) {
    const std::string_view name = element.Name();
    if (const int level = HeadingLevel(name)) {
      builder_.BeginHeading(level);
      AddChildren(element);
      builder_.EndHeading();
    } else if (name == "br") {
      builder_.LineBreak();
    } else if (name == "table") {
      AddTable(element);
    } else if (name == "ul" || name == "ol" || name == "menu" || name == "dir") {
      AddList(element);
    } else if (name == "pre" || name == "listing" || name == "xmp") {
      AddPreformatted(element);
    } else if (name == "blockquote" || name == "dd") {
      AddIndented(element);
    } else if (IsOneOf(name, kParagraphs)) {
      AddBlock(element, ParagraphGap());
    } else if (IsOneOf(name, kLines)) {
      AddBlock(element, Gap::Line);
    } else {
      AddInline(element);
    }
  }

  [[nodiscard]] Gap ParagraphGap() const { return lists_ > 0 ? Gap::Line : Gap::Paragraph; }

  void AddBlock(Node element, Gap gap) {
    builder_.Break(gap);
    AddChildren(element);
    builder_.Break(gap);
  }

  void AddIndented(Node element) {
    const Gap gap = element.Is("dd") ? Gap::Line : ParagraphGap();
    builder_.Break(gap);
    const ParagraphFormat before = builder_.Paragraph();
    Indent(before);
    AddChildren(element);
    builder_.SetParagraph(before);
    builder_.Break(gap);
  }

  void Indent(ParagraphFormat format) {
    format.leftIndent = std::min(format.leftIndent + 360, 3600);
    builder_.SetParagraph(format);
  }

  void AddPreformatted(Node element) {
    builder_.Break(ParagraphGap());
    const bool before = std::exchange(preformatted_, true);
    AddChildren(element);
    preformatted_ = before;
    builder_.Break(ParagraphGap());
  }

  void AddList(Node list) {
    builder_.Break(ParagraphGap());
    const ParagraphFormat before = builder_.Paragraph();
    if (lists_++ > 0) Indent(before);
    int number = NumberOf(list.Attribute("start"), 1);
    for (Node child = list.FirstChild(); child; child = child.Next()) {
      if (child.Is("li") && !IsHiddenHtml(child)) {
        number = NumberOf(child.Attribute("value"), number);
        builder_.Break(Gap::Line);
        AddItem(child, MarkOf(list, number++));
      } else {
        Add(child);
      }
    }
    --lists_;
    builder_.SetParagraph(before);
    builder_.Break(ParagraphGap());
  }

  void AddItem(Node item, const std::string& mark) {
    builder_.Mark(mark);
    Add(item);
    builder_.DropMark();
  }

  static std::string MarkOf(Node list, int number) {
    const std::string_view kind = list.Attribute("type");
    if (HasStyle(list, "list-style-type:none") || HasStyle(list, "list-style:none")) return {};
    if (!list.Is("ol")) return "• ";
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kKinds{
        {{"a", "lowerLetter"}, {"A", "upperLetter"}, {"i", "lowerRoman"}, {"I", "upperRoman"}}};
    for (const auto& [type, name] : kKinds) {
      if (kind == type) return ListNumber(number, name) + ". ";
    }
    return std::to_string(number) + ". ";
  }

  // Pages of old lie in tables altogether.
  static bool IsForLayout(Node table) {
    if (table.Attribute("role") == "presentation") return true;
    for (Node node = table.Following(table); node; node = node.Following(table)) {
      if (node.Is("table") || HeadingLevel(node.Name()) != 0 || node.Is("article")) return true;
    }
    return false;
  }

  void AddTable(Node table) {
    builder_.Break(ParagraphGap());
    if (IsForLayout(table)) {
      AddLayout(table);
    } else {
      AddRows(table);
    }
    builder_.Break(ParagraphGap());
  }

  void AddLayout(Node part) {
    for (Node child = part.FirstChild(); child; child = child.Next()) {
      const std::string_view name = child.Name();
      if (IsHiddenHtml(child)) continue;
      if (name == "td" || name == "th" || name == "caption") {
        AddBlock(child, ParagraphGap());
      } else if (name == "tr" || name == "tbody" || name == "thead" || name == "tfoot") {
        AddLayout(child);
      } else {
        Add(child);
      }
    }
  }

  void AddRows(Node part) {
    for (Node child = part.FirstChild(); child; child = child.Next()) {
      const std::string_view name = child.Name();
      if (IsHiddenHtml(child)) continue;
      if (name == "tr") {
        AddRow(child);
      } else if (name == "tbody" || name == "thead" || name == "tfoot") {
        AddRows(child);
      } else if (name != "colgroup" && name != "col") {
        Add(child);
      }
    }
  }

  void AddRow(Node row) {
    builder_.BeginRow();
    AddAnchor(row);
    for (Node cell = row.FirstChild(); cell; cell = cell.Next()) {
      if (cell.IsText()) continue;
      builder_.BeginCell();
      const CharacterFormat before = builder_.Format();
      if (cell.Is("th")) SetBold(before);
      Add(cell);
      builder_.SetFormat(before);
    }
    builder_.EndRow();
  }

  void SetBold(CharacterFormat format) {
    format.bold = true;
    builder_.SetFormat(format);
  }

  void AddInline(Node element) {
    const CharacterFormat before = builder_.Format();
    builder_.SetFormat(FormatOf(element, before));
    const bool quoted = element.Is("q");
    if (quoted) builder_.Text("„");
    AddChildren(element);
    if (quoted) builder_.Text("“");
    builder_.SetFormat(before);
  }

  static CharacterFormat FormatOf(Node element, CharacterFormat format) {
    const std::string_view name = element.Name();
    if (name == "b" || name == "strong" || HasStyle(element, "font-weight:bold")) format.bold = true;
    if (name == "i" || name == "em" || name == "cite" || name == "dfn" || name == "var" ||
        HasStyle(element, "font-style:italic")) {
      format.italic = true;
    }
    if (name == "u" || name == "ins") format.underline = true;
    if (name == "s" || name == "del" || name == "strike") format.strikeThrough = true;
    if (name == "sup") format.position = ScriptPosition::Superscript;
    if (name == "sub") format.position = ScriptPosition::Subscript;
    return format;
  }

  DocumentBuilder& builder_;
  const std::string prefix_;
  bool preformatted_ = false;
  int lists_ = 0;  // within each other
};

}  // namespace

bool HasWord(std::string_view list, std::string_view word) {
  while (!list.empty()) {
    const auto end = std::min(list.find_first_of(" \t\r\n"), list.size());
    if (LowerAscii(list.substr(0, end)) == word) return true;
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return false;
}

bool IsHiddenHtml(MarkupTree::Node element) {
  if (element.IsText()) return false;
  if (element.HasAttribute("hidden") || LowerAscii(element.Attribute("aria-hidden")) == "true") return true;
  if (element.HasAttribute("style") &&
      (HasStyle(element, "display:none") || HasStyle(element, "visibility:hidden"))) {
    return true;
  }
  return IsNote(element) || IsNoteByClass(element);
}

void AddHtml(DocumentBuilder& builder, MarkupTree::Node element, const std::string& anchorPrefix) {
  HtmlWalk(builder, anchorPrefix).Add(element);
}

}  // namespace lorelin
