#pragma once

#include <string>

#include "ports/Clipboard.h"
#include "ports/ForegroundWindow.h"
#include "ports/StatusBar.h"
#include "speech/modSpeak.h"

namespace lorelin {

// Reads aloud what happens on the desktop: new text on the clipboard and the title of the window that has
// come to the front. Asked by timers of the main window; each cuts off what is being read. What Speak throws
// goes to the caller. User-interface thread only.
class DesktopMonitor {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    Clipboard& clipboard;
    ForegroundWindow& foreground;
    StatusBar& statusBar;
    ModSpeak& speech;
  };

  explicit DesktopMonitor(Parts parts) : parts_(parts) {}

  void LookAtClipboard();
  void LookAtForeground();

 private:
  Parts parts_;
  std::string lastText_;
  std::string lastTitle_;
};

}  // namespace lorelin
