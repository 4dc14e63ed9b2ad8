#include "import/docxStyles.h"

#include <algorithm>
#include <charconv>
#include <set>

#include "base/text.h"
#include "import/listMarks.h"
#include "import/markupParser.h"

namespace lorelin {
namespace {

using Node = MarkupTree::Node;

constexpr int kLevels = 9;

int ValueOf(Node element, int otherwise) {
  if (!element) return otherwise;
  const std::string_view text = element.Attribute("w:val");
  int number = otherwise;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() ? std::clamp(number, 0, 1'000'000) : otherwise;
}

std::string TextOf(Node element) {
  return element ? std::string(element.Attribute("w:val")) : std::string();
}

int HeadingOfName(const std::string& name) {
  const bool heading = name.size() == 9 && name.starts_with("heading ") && name[8] >= '1' && name[8] <= '9';
  return heading ? name[8] - '0' : 0;
}

DocxStyle ReadStyle(Node element) {
  DocxStyle style;
  style.name = LowerAscii(TextOf(element.Child("w:name")));
  style.basedOn = TextOf(element.Child("w:basedOn"));
  style.outlineLevel = HeadingOfName(style.name);
  if (const Node run = element.Child("w:rPr")) {
    style.bold = IsOn(run, "w:b");
    style.italic = IsOn(run, "w:i");
    style.hidden = IsOn(run, "w:vanish");
  }
  const Node paragraph = element.Child("w:pPr");
  if (!paragraph) return style;
  if (const Node outline = paragraph.Child("w:outlineLvl"); outline && ValueOf(outline, kLevels) < kLevels) {
    style.outlineLevel = ValueOf(outline, 0) + 1;
  }
  if (const Node item = paragraph.Child("w:numPr")) {
    style.list = TextOf(item.Child("w:numId"));
    style.listLevel = ValueOf(item.Child("w:ilvl"), 0);
  }
  return style;
}

void Inherit(DocxStyles& styles, const std::string& id, std::set<std::string>& done) {
  const auto own = styles.find(id);
  if (own == styles.end() || !done.insert(id).second) return;
  DocxStyle& style = own->second;
  const auto base = styles.find(style.basedOn);
  if (base == styles.end()) return;
  style.bold |= base->second.bold;
  style.italic |= base->second.italic;
  style.hidden |= base->second.hidden;
  if (style.outlineLevel == 0) style.outlineLevel = base->second.outlineLevel;
  if (style.list.empty()) {
    style.list = base->second.list;
    style.listLevel = base->second.listLevel;
  }
}

// The styles that a style rests on come first, however they lie in the file.
std::vector<std::string> BaseFirst(const DocxStyles& styles, std::string id) {
  std::vector<std::string> chain;
  constexpr std::size_t kLongest = 20;
  while (styles.contains(id) && chain.size() < kLongest) {
    chain.push_back(id);
    id = styles.find(id)->second.basedOn;
  }
  std::reverse(chain.begin(), chain.end());
  return chain;
}

}  // namespace

bool IsOn(MarkupTree::Node properties, std::string_view name) {
  const Node element = properties.Child(name);
  if (!element) return false;
  const std::string_view value = element.Attribute("w:val");
  return value != "0" && value != "false" && value != "off" && value != "none";
}

DocxStyles ReadDocxStyles(std::string_view bytes) {
  const MarkupTree tree = ParseXml(bytes);
  DocxStyles styles;
  const Node top = tree.Root().Child("w:styles");
  if (!top) return styles;
  for (Node element = top.FirstChild(); element; element = element.Next()) {
    if (element.Is("w:style")) styles.emplace(element.Attribute("w:styleId"), ReadStyle(element));
  }
  std::set<std::string> done;
  for (const auto& [id, style] : styles) {
    for (const std::string& step : BaseFirst(styles, id)) Inherit(styles, step, done);
  }
  return styles;
}

DocxLists::DocxLists(std::string_view bytes) {
  const MarkupTree tree = ParseXml(bytes);
  const Node top = tree.Root().Child("w:numbering");
  if (!top) return;
  for (Node element = top.FirstChild(); element; element = element.Next()) {
    if (element.Is("w:num")) {
      kindOf_.emplace(element.Attribute("w:numId"), TextOf(element.Child("w:abstractNumId")));
    } else if (element.Is("w:abstractNum")) {
      Levels& levels = kinds_[std::string(element.Attribute("w:abstractNumId"))];
      for (Node part = element.FirstChild(); part; part = part.Next()) {
        if (!part.Is("w:lvl")) continue;
        const std::string_view number = part.Attribute("w:ilvl");
        if (number.size() != 1 || number[0] < '0' || number[0] > '8') continue;
        levels[number[0] - '0'] = {TextOf(part.Child("w:numFmt")), TextOf(part.Child("w:lvlText")),
                                   ValueOf(part.Child("w:start"), 1)};
      }
    }
  }
}

std::string DocxLists::NextMark(const std::string& list, int level) {
  const auto kind = kindOf_.find(list);
  if (kind == kindOf_.end()) return {};
  const auto found = kinds_.find(kind->second);
  level = std::clamp(level, 0, kLevels - 1);
  if (found == kinds_.end() || !found->second.contains(level)) return "• ";
  const Level& own = found->second.at(level);
  auto& counts = counts_[kind->second];
  counts.resize(kLevels);
  auto& count = counts[static_cast<std::size_t>(level)];
  count = count == 0 ? own.start : count + 1;
  std::fill(counts.begin() + level + 1, counts.end(), 0);
  // A bullet that is a blank continues the item before.
  if (own.kind == "bullet") return WithoutBlanks(own.text).empty() ? "" : "• ";
  return own.kind == "none" ? std::string() : Number(found->second, counts, level);
}

// "%1.%2" with the numbers of the levels.
std::string DocxLists::Number(const Levels& levels, const std::vector<int>& counts, int level) const {
  const std::string& pattern = levels.at(level).text;
  std::string text;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const bool place =
        pattern[i] == '%' && i + 1 < pattern.size() && pattern[i + 1] >= '1' && pattern[i + 1] <= '9';
    if (!place) {
      text += pattern[i];
      continue;
    }
    const int other = pattern[++i] - '1';
    const auto found = levels.find(other);
    const int count = counts[static_cast<std::size_t>(other)];
    if (found != levels.end())
      text += ListNumber(count == 0 ? found->second.start : count, found->second.kind);
  }
  return text.empty() ? text : text + " ";
}

}  // namespace lorelin
