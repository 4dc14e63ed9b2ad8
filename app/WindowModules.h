#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/AddressOpening.h"
#include "app/Chapters.h"
#include "app/ContinuedReading.h"
#include "app/FileOpening.h"
#include "app/MainWindow.h"
#include "app/Modes.h"
#include "app/PrivateData.h"
#include "app/SleepTimer.h"
#include "app/TaskItems.h"
#include "app/TextSize.h"
#include "app/UnsavedTexts.h"
#include "app/WatchTimers.h"
#include "app/browserLinks.h"
#include "app/commands.h"
#include "app/readingCommands.h"
#include "documents/Documents.h"
#include "documents/GuardedDocument.h"
#include "documents/ReadingPlaces.h"
#include "documents/RecentFiles.h"
#include "documents/Recovery.h"
#include "help/errorPage.h"
#include "help/launches.h"
#include "monitor/DesktopMonitor.h"
#include "ports/Alarm.h"
#include "ports/BrowserPane.h"
#include "ports/EditorCommands.h"
#include "ports/HelpDialogs.h"
#include "ports/PlaceBar.h"
#include "ports/ProgressWindow.h"
#include "ports/PronunciationDialogs.h"
#include "ports/ReadingLookView.h"
#include "ports/SystemPorts.h"
#include "ports/VoiceDialogs.h"
#include "scripts/TaskMenu.h"
#include "scripts/interpreter.h"
#include "speech/ReadingAlong.h"
#include "speech/ReadingProgress.h"
#include "speech/SpeechModules.h"
#include "speech/modExport.h"

namespace lorelin {

// The main window's modules, in the order in which the one needs the other, and their connections: the one
// place where the window is put together, whatever shows it.
struct WindowModules {
  // What it works with; it owns none of it.
  struct Edges {
    SystemPorts system;
    SpeechModules& spoken;
    GuardedDocument& document;
    Recovery& recovery;
    MainView& view;
    EditorCommands& editing;
    ReadingMarks& marks;
    PlaceBar& placeBar;
    ReadingLookView& lookView;
    Alarm& alarm;
    BrowserPane& browser;
    TaskPane& taskPane;
    ChapterList& chapterList;
    StatusBar& statusBar;
    MessageBoxes& messageBoxes;
    FileDialogs& fileDialogs;
    ProgressWindow& progress;
    Clipboard& clipboard;
    EventPump& pump;
    VoiceDialogs& voiceDialogs;
    HelpDialogs& helpDialogs;
    PronunciationDialogs& pronunciationDialogs;
    std::string programFolder;
    std::string settingsFolder;
    std::function<void()> createScript;                    // opens the script editor
    std::function<void()> chooseLook;                      // and the choice of how the document is shown
    std::function<bool()> mayClose = [] { return true; };  // asks what the user still has to decide
    std::string homeFolder{};                              // what "~" is in the paths of scripts
    // Takes files that are a voice, not a document.
    std::function<bool(const std::vector<std::string>&)> takeVoice = [](const auto&) { return false; };
    std::function<void()> exportSound = [] {};  // asks how, and begins
    std::function<void()> showExports = [] {};  // what was begun
    PrivateFolders privateFolders{};
  };

  explicit WindowModules(Edges given);
  ~WindowModules();
  WindowModules(const WindowModules&) = delete;
  WindowModules& operator=(const WindowModules&) = delete;

  [[nodiscard]] ReadingEdges Reading();

  Edges edges;
  RecentFiles recent;
  DocumentImport import;
  Documents documents;
  ModExport exporter;
  DesktopMonitor monitor;
  Interpreter interpreter;
  ErrorPage errorPage;
  TaskMenu tasks;
  Launches launches;
  Modes modes;
  FileOpening opening;
  AddressOpening addresses;
  UnsavedTexts unsaved;
  TextSize textSize;
  ReadingAlong along;
  ReadingProgress readingProgress;
  ReadingPlaces readingPlaces;
  ContinuedReading continued;
  PrivateData privateData;
  Chapters chapters;
  SleepTimer sleep;
  TaskItems taskItems;
  WatchTimers timers;
  CommandTable commands;
  MainWindow window;
  BrowserLinks links;

 private:
  void FillCommands();
  void AddPlaceCommands();
  void Follow();
  void Connect();
};

}  // namespace lorelin
