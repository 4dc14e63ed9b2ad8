#include "app/PrivateData.h"

#include <filesystem>
#include <system_error>

#include "base/modFile.h"
#include "base/paths.h"

namespace lorelin {
namespace {

std::string Count(std::size_t count, const std::string& one, const std::string& many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace

std::vector<std::string> PrivateFilesOf(const PrivateFolders& folders) {
  return {folders.logFile, folders.logFile + ".1", folders.scriptLogFile, folders.scriptLogFile + ".1",
          JoinPath(folders.programFolder, {"hypertext", "err2.html"})};
}

// Where the page view keeps what it has loaded.
std::vector<std::string> PrivateFoldersOf(const PrivateFolders& folders) {
  return {JoinPath(folders.cacheFolder, {"WebKitCache"}), JoinPath(folders.cacheFolder, {"CacheStorage"})};
}

std::string PrivateData::Question() const {
  const std::size_t kept = parts_.recovery.Leftovers().size();
  return "Möchten Sie alles löschen, was verrät, was Sie gelesen haben?\n\n"
         "• die Liste der zuletzt verwendeten Dateien (" +
         Count(parts_.recent.Paths().size(), "Eintrag", "Einträge") +
         ")\n"
         "• die Stellen, an denen das Vorlesen von Dokumenten aufgehört hat\n"
         "• die nicht gespeicherten Texte, die links angeboten werden (" +
         Count(kept, "Text", "Texte") +
         ")\n"
         "• den Ton des zuletzt vorgelesenen Textes\n"
         "• die Protokolle und die letzte Fehlerseite\n"
         "• den Zwischenspeicher der Seitenansicht\n\n"
         "Der geöffnete Text, Ihre gespeicherten Dateien, Einstellungen, eigenen Aussprachen, Taskscripts "
         "und "
         "Stimmen bleiben.";
}

void PrivateData::Ask() {
  if (parts_.messageBoxes.Show(Question(), "Privates löschen", MessageIcon::Question,
                               MessageButtons::YesNoWarily) == MessageAnswer::Yes)
    Remove();
}

void PrivateData::Remove() {
  parts_.recent.Clear();
  parts_.settings.Save(setting::LastDoc, "");
  parts_.speech.Stop();
  parts_.speech.ClearTempFolder();
  std::vector<std::string> left = RemoveFiles();
  if (!parts_.places.Clear()) left.push_back(parts_.places.File());
  for (std::string& file : DiscardTexts()) left.push_back(std::move(file));
  if (left.empty()) return parts_.statusBar.SetMessage("Privates ist gelöscht.");
  std::string told = "Diese Dateien ließen sich nicht löschen:\n";
  for (const std::string& file : left) told += "\n" + file;
  parts_.messageBoxes.Show(told, "Privates löschen", MessageIcon::Exclamation, MessageButtons::Ok);
}

std::vector<std::string> PrivateData::DiscardTexts() const {
  std::vector<std::string> left;
  for (const Recovery::Leftover& text : parts_.recovery.Leftovers()) left.push_back(text.file);
  parts_.recovery.DiscardLeftovers();
  std::erase_if(left, [](const std::string& file) { return !FileExists(file); });
  return left;
}

std::vector<std::string> PrivateData::RemoveFiles() const {
  namespace fs = std::filesystem;
  std::vector<std::string> left;
  std::error_code error;
  for (const std::string& file : parts_.files) {
    fs::remove(NativePath(file), error);
    if (error) left.push_back(file);
  }
  for (const std::string& folder : parts_.folders) {
    fs::remove_all(NativePath(folder), error);
    if (error) left.push_back(folder);
  }
  return left;
}

}  // namespace lorelin
