#include "import/readDocument.h"

#include <string>

#include "import/archive.h"
#include "import/docx.h"
#include "import/epub.h"
#include "import/fictionBook.h"
#include "import/fileBytes.h"
#include "import/html.h"
#include "import/importErrors.h"
#include "import/importFormats.h"
#include "import/odt.h"
#include "import/pdf.h"

namespace lorelin {
namespace {

constexpr std::size_t kMostText = std::size_t{48} << 20U;
constexpr std::size_t kBeginning = 4096;

// What the first bytes say, which ending the file may have.
enum class Container { Unknown, Zip, Pdf, OldOffice, RichText, FictionBook, FlatOdt };

Container ContainerOf(std::string_view begin) {
  if (begin.starts_with("PK\x03\x04") || begin.starts_with("PK\x05\x06")) return Container::Zip;
  if (begin.substr(0, 1024).find("%PDF-") != std::string_view::npos) return Container::Pdf;
  if (begin.starts_with("\xD0\xCF\x11\xE0")) return Container::OldOffice;
  if (begin.starts_with("{\\rtf")) return Container::RichText;
  if (begin.find("<FictionBook") != std::string_view::npos) return Container::FictionBook;
  if (begin.find("<office:document") != std::string_view::npos) return Container::FlatOdt;
  return Container::Unknown;
}

// What a zip archive holds, by the names of the files that each format has.
ImportKind KindOfArchive(const std::string& path, ImportKind byEnding) {
  bool book = false;
  bool docx = false;
  bool odt = false;
  bool fictionBook = false;
  (void)ReadArchive(path, "Die Datei", [&](std::string_view name) {
    book |= name == "META-INF/container.xml" || name.ends_with(".opf");
    docx |= name == "word/document.xml" || name == "[Content_Types].xml";
    odt |= name == "content.xml";
    fictionBook |= name.ends_with(".fb2");
    return false;
  });
  if (book) return ImportKind::Epub;
  if (docx) return ImportKind::Docx;
  if (odt) return ImportKind::Odt;
  return fictionBook ? ImportKind::FictionBook : byEnding;
}

ImportedDocument ReadZip(ImportKind byEnding, const ImportRequest& request, const ImportProgress& progress) {
  switch (KindOfArchive(request.path, byEnding)) {
    case ImportKind::Epub:
      return ReadEpub(request, progress);
    case ImportKind::Docx:
      return ReadDocx(request);
    case ImportKind::Odt:
      return ReadOdt(request);
    case ImportKind::FictionBook:
      return ReadZippedFictionBook(request);
    default:
      throw ImportError("Die Datei ist ein Archiv ohne Dokument, das Lorelin lesen kann.");
  }
}

[[noreturn]] void RefuseUnknown(ImportKind byEnding) {
  switch (byEnding) {
    case ImportKind::Epub:
      throw DamagedDocument("Das E-Book");
    case ImportKind::Pdf:
      throw DamagedDocument("Das PDF-Dokument");
    case ImportKind::Docx:
      throw DamagedDocument("Das Word-Dokument");
    case ImportKind::Odt:
      throw DamagedDocument("Das OpenDocument-Dokument");
    default:
      throw DamagedDocument("Das FictionBook");
  }
}

ImportedDocument ReadUnpacked(ImportKind byEnding, const ImportRequest& request) {
  switch (byEnding) {
    case ImportKind::Html:
      return ReadHtml(FileBytes(request.path, kMostText), request);
    case ImportKind::Markdown:
      return ReadMarkdown(FileBytes(request.path, kMostText));
    default:
      RefuseUnknown(byEnding);
  }
}

}  // namespace

ImportedDocument ReadDocument(const ImportRequest& request, const ImportProgress& progress) {
  const ImportFormat* const format = ImportFormatOf(request.path);
  const ImportKind byEnding = format != nullptr ? format->kind : ImportKind::Html;
  if (byEnding == ImportKind::Markdown) return ReadUnpacked(byEnding, request);
  switch (ContainerOf(FirstBytes(request.path, kBeginning))) {
    case Container::Zip:
      return ReadZip(byEnding, request, progress);
    case Container::Pdf:
      return ReadPdf(request, progress);
    case Container::OldOffice:
      throw ImportError(
          "Das Dokument ist mit einem Kennwort geschützt oder in einem alten Format gespeichert. Bitte "
          "speichern "
          "Sie es in Ihrer Textverarbeitung ohne Kennwort als DOCX oder RTF.");
    case Container::RichText:
      throw ImportError(
          "Die Datei ist ein RTF-Dokument. Bitte geben Sie ihr die Endung „.rtf“ und öffnen Sie sie dann.");
    case Container::FictionBook:
      return ReadFictionBook(request);
    case Container::FlatOdt:
      return ReadFlatOdt(request);
    default:
      return ReadUnpacked(byEnding, request);
  }
}

}  // namespace lorelin
