#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/MainWindow.h"
#include "ports/Clipboard.h"
#include "ports/Clock.h"
#include "ports/RemoteControl.h"
#include "ports/SelectedText.h"
#include "ports/StatusBar.h"
#include "speech/modSpeak.h"

namespace lorelin {

// The program as those see it who control it from outside: carries out what they ask for and tells them how
// the reading goes. User-interface thread only.
class RemoteSession {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    RemoteControl& remote;
    MainWindow& window;
    ModSpeak& speech;
    Clock& clock;
    Clipboard& clipboard;
    SelectedText& selectedText;
    StatusBar& statusBar;
    std::function<std::string()> ownSelection;      // "" while another program is in front
    std::function<std::string()> primarySelection;  // what was selected last, where the system keeps that
    std::function<std::string()> title;             // of the text that is read
    std::function<void()> raise;                    // brings the window to the front
    std::function<bool()> awaitsAnswer;             // whether a dialog is open that has to be answered first
  };

  explicit RemoteSession(Parts parts) : parts_(std::move(parts)) {}
  ~RemoteSession();
  RemoteSession(const RemoteSession&) = delete;
  RemoteSession& operator=(const RemoteSession&) = delete;

  // From now on the program is to be found by others.
  void Begin();
  // What is selected: in the own window when that is in front, in the program in front, the selection that
  // was made last, the clipboard; the first of them that is no blank text.
  [[nodiscard]] std::string Selection() const;
  // Tells it when the text is blank.
  void ReadAloud(std::string text, const std::string& whenBlank = "Es ist nirgends Text markiert.");
  void Carry(const RemoteOrder& order);

 private:
  void ReadFiles(const std::vector<std::string>& files);
  void Play();
  void Pause();
  [[nodiscard]] bool Sounds() const;
  void Tell();

  Parts parts_;
  Playback playback_ = Playback::Stopped;
  std::chrono::steady_clock::time_point since_;
  std::chrono::steady_clock::duration heard_{};
};

}  // namespace lorelin
