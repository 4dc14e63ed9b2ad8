#include "import/epub.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "base/text.h"
#include "import/DocumentBuilder.h"
#include "import/archive.h"
#include "import/epubPackage.h"
#include "import/htmlText.h"
#include "import/importErrors.h"
#include "import/markupEncoding.h"
#include "import/markupParser.h"

namespace lorelin {
namespace {

using Node = MarkupTree::Node;

const std::string kKind = "Das E-Book";
constexpr std::string_view kContainer = "META-INF/container.xml";
constexpr std::string_view kEncryption = "META-INF/encryption.xml";

// The package document: what the container names, else the first that there is.
std::string PackageName(const ArchiveFiles& files) {
  const MarkupTree container = ParseXml(FileOf(files, kContainer));
  if (const Node root = container.Root().Find("rootfile")) {
    std::string name = NameInArchive("", root.Attribute("full-path"));
    if (files.contains(name)) return name;
  }
  for (const auto& [name, content] : files) {
    if (name.ends_with(".opf")) return name;
  }
  throw DamagedDocument(kKind);
}

// Fonts may be scrambled; pages that are belong to a shop's own program.
void RefuseLocked(const ArchiveFiles& files, const EpubPackage& package) {
  const MarkupTree encryption = ParseXml(FileOf(files, kEncryption));
  for (Node node = encryption.Root(); node; node = node.Following(encryption.Root())) {
    if (!node.Is("CipherReference")) continue;
    const std::string name = NameInArchive("", node.Attribute("URI"));
    if (std::find(package.pages.begin(), package.pages.end(), name) != package.pages.end()) {
      throw ImportError(
          "Das E-Book hat einen Kopierschutz (DRM) und lässt sich nur mit dem Programm lesen, für das es "
          "gekauft "
          "wurde.");
    }
  }
}

ArchiveFiles ReadPages(const std::string& path, const EpubPackage& package) {
  std::set<std::string, std::less<>> names(package.pages.begin(), package.pages.end());
  names.insert({package.navigation, package.contents});
  return ReadArchive(path, kKind, [&](std::string_view name) { return names.contains(name); });
}

void AddPage(DocumentBuilder& builder, const std::string& name, std::string_view bytes) {
  builder.Break(DocumentBuilder::Gap::Paragraph);
  builder.Anchor(name);
  const MarkupTree tree = ParseHtml(DecodeMarkup(bytes));
  AddHtml(builder, tree.Root(), name + "#");
  builder.Break(DocumentBuilder::Gap::Paragraph);
}

std::vector<EpubEntry> ReadEntries(const ArchiveFiles& files, const EpubPackage& package) {
  std::vector<EpubEntry> entries;
  if (files.contains(package.navigation)) {
    entries = ReadEpubNavigation(FileOf(files, package.navigation), package.navigation);
  }
  if (entries.empty() && files.contains(package.contents)) {
    entries = ReadEpubContents(FileOf(files, package.contents), package.contents);
  }
  return entries;
}

// A place that is not in the page stands for the page.
const std::size_t* PositionOf(const DocumentBuilder& builder, const std::string& place) {
  const auto& anchors = builder.Anchors();
  auto found = anchors.find(place);
  if (found == anchors.end()) found = anchors.find(place.substr(0, place.find('#')));
  return found != anchors.end() ? &found->second : nullptr;
}

// The chapters of the table of contents in the place of those that headings gave; these stay where it leads
// nowhere.
void SetChapters(DocumentBuilder& builder, const std::vector<EpubEntry>& entries) {
  const auto leads = [&](const EpubEntry& entry) {
    const std::size_t* const position = PositionOf(builder, entry.place);
    return position != nullptr && *position < builder.Characters();
  };
  if (std::none_of(entries.begin(), entries.end(), leads)) return;
  builder.DropChapters();
  for (const EpubEntry& entry : entries) {
    if (leads(entry)) builder.AddChapter(entry.title, entry.level, *PositionOf(builder, entry.place));
  }
}

bool IsPackageFile(std::string_view name) {
  return name == kContainer || name == kEncryption || name.ends_with(".opf");
}

}  // namespace

ImportedDocument ReadEpub(const ImportRequest& request, const ImportProgress& progress) {
  const ArchiveFiles packages = ReadArchive(request.path, kKind, &IsPackageFile);
  const std::string name = PackageName(packages);
  const EpubPackage package = ReadEpubPackage(FileOf(packages, name), name);
  RefuseLocked(packages, package);
  const ArchiveFiles files = ReadPages(request.path, package);
  DocumentBuilder builder;
  builder.Info() = package.info;
  std::size_t missing = 0;
  for (std::size_t i = 0; i < package.pages.size(); ++i) {
    const std::string& page = package.pages[i];
    if (files.contains(page)) AddPage(builder, page, FileOf(files, page));
    if (!files.contains(page)) ++missing;
    progress(static_cast<int>(100 * (i + 1) / package.pages.size()));
  }
  builder.ResolveAnchors();
  SetChapters(builder, ReadEntries(files, package));
  if (builder.Characters() == 0) throw missing > 0 ? DamagedDocument(kKind) : NoTextInDocument();
  if (missing > 0) builder.Document().notice = "Das E-Book ist unvollständig: Es fehlen Teile des Textes.";
  return builder.Finish();
}

}  // namespace lorelin
