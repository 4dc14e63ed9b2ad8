#pragma once

#include <string>

#include "app/WindowModules.h"
#include "documents/GuardedDocument.h"
#include "tests/support/FakeAlarm.h"
#include "tests/support/FakeChapterList.h"
#include "tests/support/FakePlaceBar.h"
#include "tests/support/FakePronunciationDialogs.h"
#include "tests/support/FakeReadingLookView.h"
#include "tests/support/FakeReadingMarks.h"
#include "tests/support/SpeechFixture.h"

namespace lorelin {

// The whole window program on fakes.
class ScriptFixture : public SpeechFixture {
 protected:
  void WriteScript(const std::string& name, std::string_view text) {
    std::filesystem::create_directories(folder.File("scripts"));
    WriteFile(folder.File("scripts/" + name), text);
  }

  FakeClipboard clipboard;
  FakeMainView view{calls};
  FakeBrowserPane browser{calls};
  FakeTaskPane taskPane{calls};
  FakeChapterList chapterList;
  FakeFileDialogs fileDialogs;
  FakeProgressWindow progress;
  FakeVoiceDialogs voiceDialogs;
  FakeHelpDialogs helpDialogs;
  FakePronunciationDialogs pronunciationDialogs;
  FakeEditorCommands editing;
  FakeReadingMarks marks;
  FakePlaceBar placeBar;
  FakeReadingLookView lookView;
  int looksChosen = 0;
  int soundExports = 0;
  int exportsShown = 0;
  FakeAlarm alarm;
  FakeFileSearch recoveryFiles;
  int snapshotsScheduled = 0;
  int editorsOpened = 0;
  Recovery recovery{{.editor = document,
                     .files = files,
                     .fileSearch = recoveryFiles,
                     .clock = clock,
                     .statusBar = statusBar,
                     .messageBoxes = messageBoxes,
                     .log = log,
                     .folder = folder.File("recovery"),
                     .scheduleSnapshot = [this] { ++snapshotsScheduled; }}};
  GuardedDocument guarded{document, recovery};
  bool mayClose = true;
  WindowModules modules{{.system = system,
                         .spoken = spoken,
                         .document = guarded,
                         .recovery = recovery,
                         .view = view,
                         .editing = editing,
                         .marks = marks,
                         .placeBar = placeBar,
                         .lookView = lookView,
                         .alarm = alarm,
                         .browser = browser,
                         .taskPane = taskPane,
                         .chapterList = chapterList,
                         .statusBar = statusBar,
                         .messageBoxes = messageBoxes,
                         .fileDialogs = fileDialogs,
                         .progress = progress,
                         .clipboard = clipboard,
                         .pump = pump,
                         .voiceDialogs = voiceDialogs,
                         .helpDialogs = helpDialogs,
                         .pronunciationDialogs = pronunciationDialogs,
                         .programFolder = folder.Path(),
                         .settingsFolder = folder.File("settings"),
                         .createScript = [this] { ++editorsOpened; },
                         .chooseLook = [this] { ++looksChosen; },
                         .mayClose = [this] { return mayClose; },
                         .homeFolder = folder.Path(),
                         .exportSound = [this] { ++soundExports; },
                         .showExports = [this] { ++exportsShown; },
                         .privateFolders = {.programFolder = folder.Path(),
                                            .cacheFolder = folder.File("cache"),
                                            .logFile = folder.File("lorelin.log"),
                                            .scriptLogFile = folder.File("taskscripts.log")}}};
  RecentFiles& recent = modules.recent;
  Documents& documents = modules.documents;
  ModExport& exporter = modules.exporter;
  DesktopMonitor& monitor = modules.monitor;
  Interpreter& interpreter = modules.interpreter;
  ErrorPage& errorPage = modules.errorPage;
  TaskMenu& tasks = modules.tasks;
  Launches& launches = modules.launches;
  MainWindow& window = modules.window;
};

}  // namespace lorelin
