#pragma once

#include <string>

#include "extensions/modAddin.h"
#include "ports/Clock.h"
#include "ports/FileDialogs.h"
#include "ports/FileWriter.h"
#include "ports/MessageBoxes.h"
#include "ports/ProgressWindow.h"
#include "ports/StatusBar.h"
#include "speech/modSpeak.h"

namespace lorelin {

// Saves what was rendered last under a name of the user's choice. User-interface thread only.
class ModExport {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    ModSpeak& speech;
    StatusBar& statusBar;
    MessageBoxes& messageBoxes;
    FileDialogs& fileDialogs;
    FileWriter& files;
    ProgressWindow& progress;
    Clock& clock;
    ModAddin& extensions;
  };

  explicit ModExport(Parts parts) : parts_(parts) {}

  // Errors end in a message box; cancelling says nothing.
  void ExportDoc();

 private:
  [[nodiscard]] bool Copy(const std::string& target);

  Parts parts_;
};

}  // namespace lorelin
