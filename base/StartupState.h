#pragma once

#include <string>

namespace lorelin {

// What start-up leaves behind for the main window's load sequence and for speaking.
struct StartupState {
  std::string startupFilePath;     // document to open when the main window has loaded; "" for none
  bool speakOnStart = false;       // read that document aloud at the end of the load sequence
  std::string parameterScript;     // script asked for on the command line; no switch fills it
  bool loadingInProgress = false;  // while true every request to speak is ignored
};

}  // namespace lorelin
