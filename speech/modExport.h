#pragma once

#include <string>

#include "extensions/modAddin.h"
#include "platform/Clock.h"
#include "platform/FileDialogs.h"
#include "platform/FileWriter.h"
#include "platform/MessageBoxes.h"
#include "platform/ProgressWindow.h"
#include "platform/StatusBar.h"
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
