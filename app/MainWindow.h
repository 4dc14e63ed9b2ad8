#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/browserLinks.h"
#include "app/commands.h"
#include "base/StartupState.h"
#include "documents/Documents.h"
#include "documents/RecentFiles.h"
#include "documents/Recovery.h"
#include "extensions/modAddin.h"
#include "help/launches.h"
#include "monitor/DesktopMonitor.h"
#include "ports/BrowserPane.h"
#include "ports/Clipboard.h"
#include "ports/DocumentEditor.h"
#include "ports/EditorCommands.h"
#include "ports/HelpDialogs.h"
#include "ports/Log.h"
#include "ports/MainView.h"
#include "ports/MessageBoxes.h"
#include "ports/Shell.h"
#include "ports/StatusBar.h"
#include "ports/TaskPane.h"
#include "ports/VoiceDialogs.h"
#include "scripts/TaskMenu.h"
#include "scripts/interpreter.h"
#include "settings/SettingsStore.h"
#include "speech/modExport.h"
#include "speech/modSpeak.h"

namespace lorelin {

// What the main window does; how it looks is the form's business (MainView and the other ports).
// User-interface thread only, re-entrant like everything that can wait for speech.
class MainWindow {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    MainView& view;
    DocumentEditor& editor;
    BrowserPane& browser;
    TaskPane& taskPane;
    StatusBar& statusBar;
    MessageBoxes& messageBoxes;
    Clipboard& clipboard;
    Shell& shell;
    Log& log;
    SettingsStore& settings;
    Documents& documents;
    EditorCommands& editing;
    RecentFiles& recent;
    Recovery& recovery;
    ModSpeak& speech;
    ModExport& exporter;
    VoiceDialogs& voiceDialogs;
    ModAddin& extensions;
    DesktopMonitor& monitor;
    Interpreter& interpreter;
    TaskMenu& tasks;
    HelpDialogs& helpDialogs;
    Launches& launches;
    StartupState& startup;
    std::string programFolder;
    std::function<bool()> mayClose = [] { return true; };  // asks what the user still has to decide
  };

  explicit MainWindow(Parts parts);
  ~MainWindow();
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  // The load sequence; only the first call does anything. A failing step is logged and skipped.
  void Load();

  void InteractiveMode();
  void Textmode();
  // Creates the folders for scripts and temporary files in the program folder.
  void CreateScriptDir();
  void ExitLo();
  // Shows a page of the folder hypertext.
  void ShowPage(std::string_view name);

  // Events of the form. Run-time errors of a command end in a message box.
  void RunCommand(std::string_view command);
  void ToolbarClicked(std::string_view key);
  void TaskItemClicked(std::int32_t number, TaskPaneRequest request);
  // Sees every key before the controls do; the code is the system's virtual key code. True when the key is
  // used up.
  bool KeyPressed(int code);
  void EditorChanged(std::size_t characters);
  void RecentFileChosen(std::size_t index);
  void FileDropped(const std::string& path);
  void TimerTicked(WatchTimer timer);
  // What was saved of unsaved texts is another set of files.
  void OfferLeftovers();
  // The settings dialog has stored what it showed.
  void SettingsApplied();
  // The window is asked to close, by the user or, without a choice, by the system.
  void CloseRequested(bool forced = false);
  // The window goes away by other means.
  void Unloaded();

  [[nodiscard]] const CommandTable& Commands() const { return commands_; }
  [[nodiscard]] BrowserLinks& Links() { return links_; }
  [[nodiscard]] const std::string& HomePage() const { return homePage_; }

 private:
  struct Step {
    std::string_view name;
    std::function<void()> run;
  };

  void FillCommands();
  void Guarded(std::string_view what, const std::function<void()>& action);
  void RunSteps(std::string_view sequence, const std::vector<Step>& steps);
  void ShowHomePage();
  void StartTimer(WatchTimer timer, const SettingKey& key);
  void ChooseInitialMode();
  void FillTaskPane();
  void AddExportLink();
  void ExportLinkClicked();
  void OpenLastDocument();
  void OpenStartupDocument();
  void SpeakStartupDocument();
  void RefuseParameterScript();
  void ShowEditorPane();
  void MarkMode(bool interactive);
  void OpenDoc();
  void OpenFile(const std::string& path);
  void AddRecovery();
  void RestoreClicked(std::int32_t number);
  void RestoreLeftover(const Recovery::Leftover& leftover);
  void CopySelection();
  void CutSelection();

  Parts parts_;
  BrowserLinks links_;
  CommandTable commands_;
  bool loaded_ = false;
  bool closing_ = false;
  std::string homePage_;
};

}  // namespace lorelin
