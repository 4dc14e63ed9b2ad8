#include "app/FileOpening.h"

#include <vector>

#include "app/steps.h"
#include "base/modFile.h"
#include "import/importFormats.h"

namespace lorelin {
namespace {

std::string BookFilter() {
  const std::string plain = "*.txt;*.rtf";
  std::string filter = "Alle lesbaren Dokumente|" + AllImportPatterns() + ";" + plain;
  for (const ImportFormat& format : ImportFormats())
    filter += "|" + std::string(format.name) + "|" + ImportPatterns(format);
  return filter + "|Texte (*.txt,*.rtf)|" + plain + "|Alle Dateien (*.*)|*.*";
}

}  // namespace

void FileOpening::Choose() {
  if (parts_.documents.OpenDoc()) parts_.modes.Textmode();
}

void FileOpening::ChooseBook() {
  const auto path = parts_.fileDialogs.AskForFile({.title = "Buch oder Dokument öffnen",
                                                   .folder = {},
                                                   .fileName = {},
                                                   .filter = BookFilter(),
                                                   .defaultExtension = {}});
  if (path) Open(*path);
}

void FileOpening::Open(const std::string& path) {
  if (!FileExists(path)) {
    parts_.messageBoxes.Show("Die Datei „" + path + "“ kann nicht gelesen werden oder ist nicht mehr da.",
                             "Öffnen", MessageIcon::Exclamation, MessageButtons::Ok);
    parts_.recent.Remove(path);
    return;
  }
  const bool opened =
      IsImportable(path) ? parts_.documents.OpenReadable(path) : parts_.documents.OpenPath(path);
  if (opened) parts_.modes.Textmode();
}

void FileOpening::OpenRecent(std::size_t index) {
  const std::vector<std::string> paths = parts_.recent.Paths();
  if (index < paths.size()) Open(paths[index]);
}

void FileOpening::OpenLast() {
  if (!IsOn(setting::ShowLastDoc, parts_.settings.Get(setting::ShowLastDoc))) return;
  const std::string path = parts_.settings.Get(setting::LastDocAtStart);
  parts_.documents.SetPath(path);
  Guarded(parts_.log, "Letztes Dokument", [&] { parts_.documents.LoadAtStart(path); });
  parts_.modes.Textmode();
}

void FileOpening::OpenAtStart() {
  const std::string& path = parts_.startup.startupFilePath;
  if (path.empty()) return;
  Guarded(parts_.log, "Dokument beim Start", [&] { parts_.documents.LoadAtStart(path); });
  // The name of a file that could not be loaded is better than an empty window.
  if (parts_.editor.IsEmpty()) parts_.editor.SetText(path);
  parts_.modes.Textmode();
}

}  // namespace lorelin
