#include "import/importFormats.h"

#include <algorithm>

#include "base/text.h"

namespace lorelin {

std::span<const ImportFormat> ImportFormats() {
  static const std::vector<ImportFormat> formats{
      {ImportKind::Epub, "E-Books (EPUB)", {"epub"}},
      {ImportKind::Pdf, "PDF-Dokumente", {"pdf"}},
      {ImportKind::Docx, "Word-Dokumente", {"docx", "docm", "dotx"}},
      {ImportKind::Odt, "OpenDocument-Texte", {"odt", "ott", "fodt"}},
      {ImportKind::Html, "Webseiten (HTML)", {"html", "htm", "xhtml"}},
      {ImportKind::Markdown, "Markdown-Dateien", {"md", "markdown", "mkd"}},
      {ImportKind::FictionBook, "FictionBook-Dateien", {"fb2", "fb2.zip", "fbz"}},
  };
  return formats;
}

namespace {

bool EndsLike(std::string_view path, std::string_view ending) {
  if (path.size() < ending.size() + 2) return false;
  const std::string_view end = path.substr(path.size() - ending.size() - 1);
  const char before = path[path.size() - end.size() - 1];
  return end.front() == '.' && LowerAscii(end.substr(1)) == ending && before != '/' && before != '\\';
}

}  // namespace

const ImportFormat* ImportFormatOf(std::string_view path) {
  const auto formats = ImportFormats();
  const auto found = std::find_if(formats.begin(), formats.end(), [&](const ImportFormat& format) {
    return std::any_of(format.endings.begin(), format.endings.end(),
                       [&](std::string_view ending) { return EndsLike(path, ending); });
  });
  return found != formats.end() ? &*found : nullptr;
}

std::string ImportPatterns(const ImportFormat& format) {
  std::string patterns;
  for (const std::string_view ending : format.endings) {
    if (!patterns.empty()) patterns += ';';
    patterns.append("*.").append(ending);
  }
  return patterns;
}

std::string AllImportPatterns() {
  std::string patterns;
  for (const auto& format : ImportFormats()) {
    if (!patterns.empty()) patterns += ';';
    patterns += ImportPatterns(format);
  }
  return patterns;
}

}  // namespace lorelin
