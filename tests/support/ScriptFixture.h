#pragma once

#include <string>

#include "documents/Documents.h"
#include "documents/GuardedDocument.h"
#include "documents/RecentFiles.h"
#include "documents/Recovery.h"
#include "help/errorPage.h"
#include "help/launches.h"
#include "monitor/DesktopMonitor.h"
#include "scripts/TaskMenu.h"
#include "scripts/interpreter.h"
#include "speech/modExport.h"
#include "tests/support/SpeechFixture.h"

namespace lorelin {

// Everything that scripts and documents run on, on fakes.
class ScriptFixture : public SpeechFixture {
 protected:
  void WriteScript(const std::string& name, std::string_view text) {
    std::filesystem::create_directories(folder.File("scripts"));
    WriteFile(folder.File("scripts/" + name), text);
  }

  FakeClipboard clipboard;
  FakeProgramLauncher launcher;
  FakeDownloader downloader;
  FakeLog runLog;
  FakeMainView view{calls};
  FakeBrowserPane browser{calls};
  FakeTaskPane taskPane{calls};
  FakeFileDialogs fileDialogs;
  FakeProgressWindow progress;
  FakeVoiceDialogs voiceDialogs;
  FakeHelpDialogs helpDialogs;
  FakeShell shell;
  Launches launches{shell, log, folder.Path()};
  FakeEditorCommands editing;
  FakeFileSearch recoveryFiles;
  Recovery recovery{{.editor = document,
                     .files = files,
                     .fileSearch = recoveryFiles,
                     .clock = clock,
                     .log = log,
                     .folder = folder.File("recovery"),
                     .scheduleSnapshot = [this] { ++snapshotsScheduled; },
                     .leftoversChanged = [this] { leftoversChanged(); }}};
  int snapshotsScheduled = 0;
  std::function<void()> leftoversChanged = [] {};
  GuardedDocument guarded{document, recovery};
  RecentFiles recent{settings, [this] { view.SetRecentFiles(recent.Paths()); }};
  Documents documents{{.editor = guarded,
                       .fileDialogs = fileDialogs,
                       .files = files,
                       .messageBoxes = messageBoxes,
                       .pump = pump,
                       .extensions = extensions,
                       .log = log,
                       .stateChanged = [this] { view.SetTitle(documents.Title()); },
                       .stored = [this] { recovery.Saved(); },
                       .used = [this](const std::string& path) { recent.Add(path); }}};
  ModExport exporter{{.speech = speech,
                      .statusBar = statusBar,
                      .messageBoxes = messageBoxes,
                      .fileDialogs = fileDialogs,
                      .files = files,
                      .progress = progress,
                      .clock = clock,
                      .extensions = extensions}};
  FakeForegroundWindow foreground;
  DesktopMonitor monitor{
      {.clipboard = clipboard, .foreground = foreground, .statusBar = statusBar, .speech = speech}};
  Interpreter interpreter{{.speech = speech,
                           .document = guarded,
                           .statusBar = statusBar,
                           .messageBoxes = messageBoxes,
                           .clipboard = clipboard,
                           .pump = pump,
                           .clock = clock,
                           .fileSearch = fileSearch,
                           .launcher = launcher,
                           .downloader = downloader,
                           .settings = settings,
                           .runLog = runLog,
                           .scriptFolder = folder.File("scripts"),
                           .fileOfItem = [this](std::int32_t item) { return tasks.GetSelectedItem(item); }}};
  ErrorPage errorPage{
      {.view = view, .browser = browser, .files = files, .log = log, .programFolder = folder.Path()}};
  int editorsOpened = 0;
  TaskMenu tasks{{.taskPane = taskPane,
                  .fileSearch = fileSearch,
                  .messageBoxes = messageBoxes,
                  .settings = settings,
                  .extensions = extensions,
                  .interpreter = interpreter,
                  .programFolder = folder.Path(),
                  .createScript = [this] { ++editorsOpened; },
                  .reportError =
                      [this](std::int32_t number, const std::string& description) {
                        errorPage.ShowErrorPage(number, description);
                      }}};
};

}  // namespace lorelin
