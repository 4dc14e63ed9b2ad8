#include "import/epubPackage.h"

#include <algorithm>

#include "import/DocumentBuilder.h"
#include "import/archive.h"
#include "import/htmlText.h"
#include "import/markupEncoding.h"
#include "import/markupParser.h"

namespace lorelin {
namespace {

using Node = MarkupTree::Node;

constexpr std::size_t kMostEntries = 20'000;

struct Item {
  std::string name;
  std::string type;
  std::string properties;
};

std::map<std::string, Item, std::less<>> ManifestOf(Node package, const std::string& name) {
  std::map<std::string, Item, std::less<>> items;
  const Node manifest = package.Find("manifest");
  if (!manifest) return items;
  for (Node item = manifest.FirstChild(); item; item = item.Next()) {
    if (!item.Is("item")) continue;
    items.emplace(item.Attribute("id"),
                  Item{NameInArchive(name, item.Attribute("href")), std::string(item.Attribute("media-type")),
                       std::string(item.Attribute("properties"))});
  }
  return items;
}

bool IsPage(const Item& item) {
  return !item.type.starts_with("image/") && !item.type.starts_with("audio/") &&
         !item.type.starts_with("video/");
}

void TakeInfo(Node metadata, DocumentInfo& info) {
  for (Node fact = metadata.FirstChild(); fact; fact = fact.Next()) {
    const std::string value = OneLine(fact.WholeText());
    if (fact.Is("dc:title") && info.title.empty()) info.title = value;
    if (fact.Is("dc:language") && info.language.empty()) info.language = value;
    if (fact.Is("dc:creator") && !value.empty())
      info.author.append(info.author.empty() ? "" : ", ").append(value);
    // Books of the standard's first days keep them one level deeper.
    if (fact.Is("dc-metadata")) TakeInfo(fact, info);
  }
}

std::string Place(const std::string& from, std::string_view reference) {
  std::string place = NameInArchive(from, reference);
  const auto fragment = reference.find('#');
  if (reference.starts_with('#')) place = from;
  if (fragment != std::string_view::npos) place += WithoutEscapes(reference.substr(fragment));
  return place;
}

// The lists of a navigation element: an item's first link is its title, a list in it holds what lies below.
void AddList(Node list, int level, const std::string& name, std::vector<EpubEntry>& entries) {
  for (Node item = list.FirstChild(); item; item = item.Next()) {
    if (!item.Is("li")) continue;
    for (Node part = item.FirstChild(); part; part = part.Next()) {
      if (entries.size() >= kMostEntries) return;
      if (part.Is("ol") || part.Is("ul")) {
        AddList(part, level + 1, name, entries);
      } else if (const Node link = part.Is("a") ? part : part.IsText() ? Node() : part.Find("a")) {
        entries.push_back({OneLine(link.WholeText()), level, Place(name, link.Attribute("href"))});
      }
    }
  }
}

void AddPoints(Node parent, int level, const std::string& name, std::vector<EpubEntry>& entries) {
  for (Node point = parent.FirstChild(); point; point = point.Next()) {
    if (!point.Is("navPoint") || entries.size() >= kMostEntries) continue;
    const Node label = point.Child("navLabel");
    const Node content = point.Child("content");
    if (label && content) {
      entries.push_back({OneLine(label.WholeText()), level, Place(name, content.Attribute("src"))});
    }
    AddPoints(point, level + 1, name, entries);
  }
}

Node ContentsOf(Node top) {
  Node first;
  for (Node node = top; node; node = node.Following(top)) {
    if (!node.Is("nav")) continue;
    if (HasWord(node.Attribute("epub:type"), "toc") || HasWord(node.Attribute("role"), "doc-toc"))
      return node;
    if (!first && !node.HasAttribute("epub:type")) first = node;
  }
  return first;
}

}  // namespace

EpubPackage ReadEpubPackage(std::string_view bytes, const std::string& name) {
  const MarkupTree tree = ParseXml(bytes);
  EpubPackage package;
  const auto items = ManifestOf(tree.Root(), name);
  for (const auto& [id, item] : items) {
    if (HasWord(item.properties, "nav")) package.navigation = item.name;
    if (item.type == "application/x-dtbncx+xml") package.contents = item.name;
  }
  if (const Node metadata = tree.Root().Find("metadata")) TakeInfo(metadata, package.info);
  const Node spine = tree.Root().Find("spine");
  if (!spine) return package;
  if (const auto toc = items.find(spine.Attribute("toc")); toc != items.end())
    package.contents = toc->second.name;
  for (Node part = spine.FirstChild(); part; part = part.Next()) {
    const auto item = items.find(part.Attribute("idref"));
    if (!part.Is("itemref") || item == items.end() || !IsPage(item->second)) continue;
    // Pages outside the order are notes and the like, and the table of contents is shown beside the text.
    if (part.Attribute("linear") == "no" || item->second.name == package.navigation) continue;
    if (std::find(package.pages.begin(), package.pages.end(), item->second.name) != package.pages.end())
      continue;
    package.pages.push_back(item->second.name);
  }
  return package;
}

std::vector<EpubEntry> ReadEpubNavigation(std::string_view bytes, const std::string& name) {
  const MarkupTree tree = ParseHtml(DecodeMarkup(bytes));
  std::vector<EpubEntry> entries;
  const Node contents = ContentsOf(tree.Root());
  if (!contents) return entries;
  Node list = contents.Find("ol");
  if (!list) list = contents.Find("ul");
  if (list) AddList(list, 1, name, entries);
  return entries;
}

std::vector<EpubEntry> ReadEpubContents(std::string_view bytes, const std::string& name) {
  const MarkupTree tree = ParseXml(bytes);
  std::vector<EpubEntry> entries;
  if (const Node map = tree.Root().Find("navMap")) AddPoints(map, 1, name, entries);
  return entries;
}

}  // namespace lorelin
