#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/Modes.h"
#include "app/commands.h"
#include "app/steps.h"
#include "documents/Documents.h"
#include "documents/Recovery.h"
#include "ports/Log.h"
#include "ports/MainView.h"
#include "ports/MessageBoxes.h"
#include "ports/Shell.h"
#include "ports/StatusBar.h"
#include "scripts/interpreter.h"

namespace lorelin {

// The main window's life and what reaches it from outside: loading, modes, commands, keys, closing. How it
// looks is the form's business (MainView and the other ports). User-interface thread only, re-entrant like
// everything that can wait for speech.
class MainWindow {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    MainView& view;
    StatusBar& statusBar;
    MessageBoxes& messageBoxes;
    Shell& shell;
    Log& log;
    const CommandTable& commands;
    Modes& modes;
    Documents& documents;
    Recovery& recovery;
    Interpreter& interpreter;
    std::string programFolder;
    // `textFollows`: the text mode is what the window is loaded for.
    std::function<std::vector<Step>(bool textFollows)> loadSequence;
    std::function<std::vector<Step>(bool forced)> closeSequence;
    std::function<bool()> mayClose;  // asks what the user still has to decide
  };

  explicit MainWindow(Parts parts) : parts_(std::move(parts)) {}
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  // The load sequence; only the first call does anything. A failing step is logged and skipped.
  void Load();

  // Both load the window if need be.
  void InteractiveMode();
  void Textmode();
  void ExitLo();

  // Events of the form. Run-time errors of a command end in a message box.
  void RunCommand(std::string_view command);
  // The same for what is no command; the log calls it by this name.
  void Run(std::string_view name, const std::function<void()>& effect);
  void ToolbarClicked(std::string_view key);
  // Sees every key before the controls do; the code is the system's virtual key code. True when the key is
  // used up.
  bool KeyPressed(int code);
  void EditorChanged(std::size_t characters);
  // The window is asked to close, by the user or, without a choice, by the system.
  void CloseRequested(bool forced = false);
  // The window goes away by other means.
  void Unloaded();

 private:
  void LoadFor(bool text);
  [[nodiscard]] bool MayClose();

  Parts parts_;
  bool loaded_ = false;
  bool closing_ = false;
};

}  // namespace lorelin
