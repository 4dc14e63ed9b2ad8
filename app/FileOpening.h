#pragma once

#include <cstddef>
#include <string>

#include "app/Modes.h"
#include "base/StartupState.h"
#include "documents/Documents.h"
#include "documents/RecentFiles.h"
#include "ports/DocumentEditor.h"
#include "ports/FileDialogs.h"
#include "ports/Log.h"
#include "ports/MessageBoxes.h"
#include "settings/SettingsStore.h"

namespace lorelin {

// The ways in which a file becomes the document: from the dialog, from the list of recent ones, dropped on
// the window, at the start. A document that was opened is shown. User-interface thread only.
class FileOpening {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    Documents& documents;
    RecentFiles& recent;
    DocumentEditor& editor;
    MessageBoxes& messageBoxes;
    FileDialogs& fileDialogs;
    SettingsStore& settings;
    Log& log;
    const StartupState& startup;
    Modes& modes;
  };

  explicit FileOpening(Parts parts) : parts_(parts) {}

  // Asks for a file.
  void Choose();
  // Asks for one of every format that can be read.
  void ChooseBook();
  // Nobody chose this file in a dialog that would have shown what there is.
  void Open(const std::string& path);
  // One of the recent files; one that has gone is told and forgotten.
  void OpenRecent(std::size_t index);
  // The document of the run before, when the settings ask for it.
  void OpenLast();
  // The document that start-up was given; the name of one that cannot be loaded is shown in its place.
  void OpenAtStart();

 private:
  Parts parts_;
};

}  // namespace lorelin
