#include "app/WindowModules.h"

#include <utility>

#include "app/pronunciationCommands.h"
#include "app/sequences.h"
#include "app/windowCommands.h"
#include "base/paths.h"

namespace lorelin {

WindowModules::WindowModules(Edges given)
    : edges(std::move(given)),
      recent(edges.spoken.settings, [this] { edges.view.SetRecentFiles(recent.Paths()); }),
      import(edges.system.importer, edges.progress, edges.system.clock),
      documents({.editor = edges.document,
                 .fileDialogs = edges.fileDialogs,
                 .files = edges.system.files,
                 .messageBoxes = edges.messageBoxes,
                 .statusBar = edges.statusBar,
                 .pump = edges.pump,
                 .import = import,
                 .extensions = edges.spoken.extensions,
                 .log = edges.system.log,
                 .stateChanged =
                     [this] {
                       edges.view.SetTitle(documents.Title());
                       edges.spoken.speech.Status().Forget();  // that was another text
                       continued.DocumentChanged();
                       chapters.DocumentChanged();
                     },
                 .stored = [this] { edges.recovery.Saved(); },
                 .unwanted = [this] { edges.recovery.LetGo(); },
                 .used = [this](const std::string& path) { recent.Add(path); }}),
      exporter({.speech = edges.spoken.speech,
                .statusBar = edges.statusBar,
                .messageBoxes = edges.messageBoxes,
                .fileDialogs = edges.fileDialogs,
                .files = edges.system.files,
                .progress = edges.progress,
                .clock = edges.system.clock,
                .extensions = edges.spoken.extensions}),
      monitor({.clipboard = edges.clipboard,
               .foreground = edges.system.foreground,
               .statusBar = edges.statusBar,
               .speech = edges.spoken.speech}),
      interpreter({.speech = edges.spoken.speech,
                   .document = edges.document,
                   .statusBar = edges.statusBar,
                   .messageBoxes = edges.messageBoxes,
                   .clipboard = edges.clipboard,
                   .pump = edges.pump,
                   .clock = edges.system.clock,
                   .fileSearch = edges.system.fileSearch,
                   .launcher = edges.system.launcher,
                   .downloader = edges.system.downloader,
                   .settings = edges.spoken.settings,
                   .runLog = edges.system.scriptLog,
                   .scriptFolder = JoinPath(edges.programFolder, {"scripts"}),
                   .fileOfItem = [this](std::int32_t item) { return tasks.GetSelectedItem(item); },
                   .homeFolder = edges.homeFolder,
                   .loadFile = [this](const std::string& path) { import.Show(path, edges.document); }}),
      errorPage({.view = edges.view,
                 .browser = edges.browser,
                 .files = edges.system.files,
                 .log = edges.system.log,
                 .programFolder = edges.programFolder}),
      tasks({.taskPane = edges.taskPane,
             .fileSearch = edges.system.fileSearch,
             .messageBoxes = edges.messageBoxes,
             .settings = edges.spoken.settings,
             .extensions = edges.spoken.extensions,
             .interpreter = interpreter,
             .programFolder = edges.programFolder,
             .createScript = edges.createScript,
             .reportError =
                 [this](std::int32_t number, const std::string& description) {
                   errorPage.ShowErrorPage(number, description);
                 }}),
      launches(edges.system.shell, edges.system.log, edges.programFolder),
      modes({.view = edges.view,
             .browser = edges.browser,
             .settings = edges.spoken.settings,
             .log = edges.system.log,
             .programFolder = edges.programFolder}),
      opening({.documents = documents,
               .recent = recent,
               .editor = edges.document,
               .messageBoxes = edges.messageBoxes,
               .fileDialogs = edges.fileDialogs,
               .settings = edges.spoken.settings,
               .log = edges.system.log,
               .startup = edges.spoken.startup,
               .modes = modes}),
      addresses({.documents = documents,
                 .fileDialogs = edges.fileDialogs,
                 .messageBoxes = edges.messageBoxes,
                 .clipboard = edges.clipboard,
                 .downloader = edges.system.downloader,
                 .progress = edges.progress,
                 .clock = edges.system.clock,
                 .modes = modes,
                 .folder = JoinPath(edges.programFolder, {"temp"})}),
      unsaved({.taskPane = edges.taskPane,
               .statusBar = edges.statusBar,
               .messageBoxes = edges.messageBoxes,
               .documents = documents,
               .recovery = edges.recovery,
               .modes = modes}),
      textSize(edges.editing, edges.spoken.settings),
      along(edges.spoken.speech, edges.marks, edges.spoken.settings),
      readingProgress({.along = along,
                       .speech = edges.spoken.speech,
                       .document = edges.document,
                       .bar = edges.placeBar,
                       .clock = edges.system.clock}),
      readingPlaces(edges.system.files, edges.system.log, edges.settingsFolder),
      continued({.along = along,
                 .progress = readingProgress,
                 .speech = edges.spoken.speech,
                 .documents = documents,
                 .document = edges.document,
                 .places = readingPlaces,
                 .taskPane = edges.taskPane,
                 .statusBar = edges.statusBar,
                 .modes = modes}),
      privateData({.recent = recent,
                   .places = readingPlaces,
                   .recovery = edges.recovery,
                   .settings = edges.spoken.settings,
                   .speech = edges.spoken.speech,
                   .messageBoxes = edges.messageBoxes,
                   .statusBar = edges.statusBar,
                   .files = PrivateFilesOf(edges.privateFolders),
                   .folders = PrivateFoldersOf(edges.privateFolders)}),
      chapters({.list = edges.chapterList,
                .documents = documents,
                .document = edges.document,
                .along = along,
                .speech = edges.spoken.speech,
                .marks = edges.marks,
                .statusBar = edges.statusBar,
                .modes = modes}),
      sleep({.alarm = edges.alarm,
             .clock = edges.system.clock,
             .statusBar = edges.statusBar,
             .view = edges.view,
             .along = along,
             .stop =
                 [this] {
                   // Not inside what the engine tells.
                   edges.pump.Post([this] {
                     interpreter.Cancel();
                     window.RunCommand("Stop");
                     edges.statusBar.SetMessage("Die Schlafzeit ist um.");
                   });
                 }}),
      taskItems({.taskPane = edges.taskPane,
                 .messageBoxes = edges.messageBoxes,
                 .scripts = tasks,
                 .unsaved = unsaved,
                 .continued = continued,
                 .speech = edges.spoken.speech,
                 .runCommand = [this](std::string_view command) { window.RunCommand(command); }}),
      timers({.view = edges.view,
              .settings = edges.spoken.settings,
              .extensions = edges.spoken.extensions,
              .monitor = monitor,
              .recovery = edges.recovery,
              .log = edges.system.log}),
      window({.view = edges.view,
              .statusBar = edges.statusBar,
              .messageBoxes = edges.messageBoxes,
              .shell = edges.system.shell,
              .log = edges.system.log,
              .commands = commands,
              .modes = modes,
              .documents = documents,
              .recovery = edges.recovery,
              .interpreter = interpreter,
              .programFolder = edges.programFolder,
              .loadSequence = [this](bool textFollows) { return LoadSequence(*this, textFollows); },
              .closeSequence = [this](bool forced) { return CloseSequence(*this, forced); },
              .mayClose = edges.mayClose}),
      links({.view = edges.view,
             .editor = edges.document,
             .messageBoxes = edges.messageBoxes,
             .shell = edges.system.shell,
             .log = edges.system.log,
             .textmode = [this] { window.Textmode(); },
             .openDoc = [this] { documents.OpenDoc(); },
             .showHomePage = [this] { modes.ShowHomePage(); },
             .speak = [this] { window.RunCommand("SpeakDocument"); }}) {
  FillCommands();
  Connect();
}

WindowModules::~WindowModules() {
  along.Tell({});
  edges.alarm.Cancel();
  edges.recovery.OnLeftoversChanged({});
  edges.document.OnReplaced([] {});
  edges.spoken.speech.OnExportAvailable({});
  edges.taskPane.OnClick({});
  edges.browser.OnNavigate({});
}

ReadingEdges WindowModules::Reading() {
  return {.along = along,
          .speech = edges.spoken.speech,
          .document = edges.document,
          .marks = edges.marks,
          .editing = edges.editing,
          .view = edges.view,
          .statusBar = edges.statusBar,
          .settings = edges.spoken.settings};
}

void WindowModules::FillCommands() {
  commands.Add("Textmode", [this] { window.Textmode(); });
  commands.Add("InteractiveMode", [this] {
    window.InteractiveMode();
    edges.browser.Focus();
  });
  commands.Add("ExitLo", [this] { window.ExitLo(); });
  AddSpeechCommands(commands, edges.spoken.speech, exporter, edges.voiceDialogs);
  AddDocumentCommands(commands, documents, opening);
  commands.Add("OpenAddress", [this] { addresses.Choose(); });
  chapters.AddCommands(commands);
  AddEditingCommands(commands, edges.document, edges.clipboard, edges.editing);
  AddPronunciationCommands(commands, edges.spoken.pronunciations, edges.pronunciationDialogs, edges.document,
                           edges.view);
  AddTextSizeCommands(commands, textSize);
  AddReadingCommands(commands, Reading());
  sleep.AddCommands(commands);
  AddPlaceCommands();
  AddConditions(commands, edges.spoken.speech, edges.editing);
  AddHelpCommands(commands, modes, edges.helpDialogs, launches);
}

void WindowModules::AddPlaceCommands() {
  commands.Add("ContinueReading", [this] { continued.Continue(); });
  commands.AddCondition("ContinueReading", [this] { return continued.CanContinue(); });
  commands.Add("ClearPrivate", [this] { privateData.Ask(); });
  commands.Add("ExportSound", [this] { edges.exportSound(); });
  commands.Add("ShowExports", [this] { edges.showExports(); });
  commands.Add("ReadingLook", [this] {
    window.Textmode();
    edges.chooseLook();
  });
  commands.Add("ChoosePlace", [this] { edges.placeBar.FocusPlace(); });
  commands.AddCondition("ChoosePlace", [this] { return along.CanSteer(); });
}

// The place is kept while it is known how much of the text was heard.
void WindowModules::Follow() {
  along.Tell({.begins =
                  [this] {
                    readingProgress.Begins();
                    continued.Begins();
                  },
              .moved =
                  [this] {
                    readingProgress.Moved();
                    chapters.Moved();
                    sleep.Moved();
                  },
              .holds =
                  [this](bool held) {
                    readingProgress.Holds(held);
                    continued.Holds(held);
                  },
              .ends =
                  [this] {
                    continued.Ends();
                    readingProgress.Ends();
                    sleep.Ends();
                  }});
}

void WindowModules::Connect() {
  Follow();
  edges.browser.OnNavigate([this](std::string& address) { return links.BeforeNavigate(address); });
  edges.spoken.speech.OnExportAvailable(
      [this](bool available) { edges.view.EnableCommand("ExportDoc", available); });
  edges.taskPane.OnClick(
      [this](std::int32_t number, TaskPaneRequest request) { taskItems.Clicked(number, request); });
  edges.recovery.OnLeftoversChanged([this] { unsaved.Offer(); });
  edges.document.OnReplaced([this] { documents.Replaced(); });
}

}  // namespace lorelin
