#pragma once

#include <string>
#include <utility>
#include <vector>

#include "documents/ReadingPlaces.h"
#include "documents/RecentFiles.h"
#include "documents/Recovery.h"
#include "ports/MessageBoxes.h"
#include "ports/StatusBar.h"
#include "settings/SettingsStore.h"
#include "speech/modSpeak.h"

namespace lorelin {

// What tells others what somebody has read, removed at once when the user wants it: lists of documents, kept
// texts that are not open, sounds, logs and what pages left. Settings, own words, scripts and voices stay.
// User-interface thread only.
class PrivateData {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    RecentFiles& recent;
    ReadingPlaces& places;
    Recovery& recovery;
    SettingsStore& settings;
    ModSpeak& speech;
    MessageBoxes& messageBoxes;
    StatusBar& statusBar;
    std::vector<std::string> files;    // that may go, whatever is in them
    std::vector<std::string> folders;  // the same with all that is in them
  };

  explicit PrivateData(Parts parts) : parts_(std::move(parts)) {}

  // Says what goes and, when the user agrees, removes it.
  void Ask();

 private:
  [[nodiscard]] std::string Question() const;
  void Remove();
  // Those that could not be removed.
  [[nodiscard]] std::vector<std::string> RemoveFiles() const;
  [[nodiscard]] std::vector<std::string> DiscardTexts() const;

  Parts parts_;
};

// The files and folders of this program that may go, by where they lie.
struct PrivateFolders {
  std::string programFolder;
  std::string cacheFolder;
  std::string logFile;
  std::string scriptLogFile;
};
[[nodiscard]] std::vector<std::string> PrivateFilesOf(const PrivateFolders& folders);
[[nodiscard]] std::vector<std::string> PrivateFoldersOf(const PrivateFolders& folders);

}  // namespace lorelin
