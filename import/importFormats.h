#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lorelin {

// The formats of documents that lorelin-import reads. Pure, standard library only.

enum class ImportKind { Epub, Pdf, Docx, Odt, Html, Markdown, FictionBook };

struct ImportFormat {
  ImportKind kind;
  std::string_view name;                  // as a German file dialog calls such files
  std::vector<std::string_view> endings;  // lower case, without the dot; the usual one first
};

// In the order in which a file dialog shows them.
[[nodiscard]] std::span<const ImportFormat> ImportFormats();

// The format that the ending of the path says (in either case); null for one that is read as text or not at
// all. The path need not exist.
[[nodiscard]] const ImportFormat* ImportFormatOf(std::string_view path);

[[nodiscard]] inline bool IsImportable(std::string_view path) {
  return ImportFormatOf(path) != nullptr;
}

// "*.epub;*.pdf;...": the patterns of one format, and of all.
[[nodiscard]] std::string ImportPatterns(const ImportFormat& format);
[[nodiscard]] std::string AllImportPatterns();

}  // namespace lorelin
