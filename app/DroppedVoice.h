#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ports/MessageBoxes.h"
#include "ports/ProgressWindow.h"
#include "ports/StatusBar.h"
#include "voices/VoiceLibrary.h"

namespace lorelin {

// Files that are dropped on the window and are a voice are installed. User-interface thread only.
class DroppedVoice {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    VoiceLibrary& voiceLibrary;
    MessageBoxes& messageBoxes;
    ProgressWindow& progress;
    StatusBar& statusBar;
    std::function<void()> renew;  // voices came
  };

  explicit DroppedVoice(Parts parts) : parts_(std::move(parts)) {}

  // Whether the files are a voice; if so, it was offered to the user and, if wanted, installed.
  bool Take(const std::vector<std::string>& paths);

 private:
  void Install(const LocalVoice& voice);

  Parts parts_;
};

}  // namespace lorelin
