#pragma once

#include <wx/dialog.h>
#include <wx/menu.h>
#include <wx/statusbr.h>
#include <wx/timer.h>
#include <wx/toolbar.h>

#include <chrono>

#include "app/MainWindow.h"
#include "desktop/frmHelpDialogs.h"
#include "desktop/frmMain.h"
#include "desktop/frmVoiceDialogs.h"
#include "desktop/toolkit/WxClipboard.h"
#include "desktop/toolkit/WxEventPump.h"
#include "desktop/toolkit/text.h"
#include "documents/GuardedDocument.h"
#include "documents/RecentFiles.h"
#include "documents/Recovery.h"
#include "tests/support/SpeechFixture.h"

namespace lorelin {

// The real main window on the modules, with the engine and the rest of the world as fakes.
class FormFixture : public testing::Test {
 protected:
  FormFixture() {
    form.Attach(&window);
    settings.Save(setting::Survey, "false");
    std::filesystem::copy(LORELIN_PAGES, folder.File("hypertext"));
  }
  ~FormFixture() override { form.Attach(nullptr); }

  // Lets the window system work until `done`; false after ten seconds.
  bool WaitUntil(const std::function<bool()>& done) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!done()) {
      if (std::chrono::steady_clock::now() > end) return false;
      pump.RunPendingEvents();
    }
    return true;
  }
  // A menu entry as a user sees it.
  wxMenuItem& Entry(const char* menu, const char* caption) {
    wxMenuBar& bar = *form.GetMenuBar();
    const int id = bar.FindMenuItem(ToWx(menu), ToWx(caption));
    EXPECT_NE(id, wxNOT_FOUND) << menu << " " << caption;
    return *bar.FindItem(id);
  }
  void Choose(const char* menu, const char* caption) {
    wxCommandEvent event(wxEVT_MENU, Entry(menu, caption).GetId());
    form.ProcessWindowEvent(event);
  }
  // Activates the item of the task pane with this caption.
  void PressTask(const std::string& caption) {
    for (wxWindow* const child : form.Tasks().GetChildren()) {
      if (FromWx(wxControl::RemoveMnemonics(child->GetLabel())) != caption) continue;
      wxCommandEvent event(wxEVT_BUTTON, child->GetId());
      child->ProcessWindowEvent(event);
      return;
    }
    ADD_FAILURE() << caption;
  }
  // Runs `open`, which shows the dialog with this name, and acts on it while it is shown; it has to close by
  // that.
  void InDialog(const std::function<void()>& open, const char* name,
                const std::function<void(wxDialog&)>& act) {
    bool acted = false;
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
      auto* const dialog = dynamic_cast<wxDialog*>(wxWindow::FindWindowByName(name));
      if (dialog == nullptr || !dialog->IsShown() || acted) return;
      acted = true;
      timer.Stop();
      act(*dialog);
      if (dialog->IsModal() && dialog->IsShown()) {
        ADD_FAILURE() << "still open: " << name;
        dialog->EndModal(wxID_CANCEL);
      }
    });
    timer.Start(10);
    open();
    // A task is opened behind the click on it.
    EXPECT_TRUE(WaitUntil([&] { return acted && wxWindow::FindWindowByName(name) == nullptr; })) << name;
  }
  std::string Panel(int number) { return FromWx(form.GetStatusBar()->GetStatusText(number)); }

  TemporaryFolder folder;
  CallLog calls;
  FakeLog log;
  FakeDirectSS voice{"Voice", calls};
  FakeDirectSS voice2{"Voice2", calls};
  FakeMessageBoxes messageBoxes;
  FakeClock clock;
  FakeFileSearch fileSearch;
  FakeRegistry registry;
  FakeAutomation automation;
  FakeShell shell;
  FakeProgramLauncher launcher;
  FakeDownloader downloader;
  WxClipboard clipboard;
  WxEventPump pump{log};
  StartupState startup;
  SettingsStore settings{registry};
  FakeFileWriter files;
  ModAddin extensions{registry, files, automation, log};
  bool ended = false;
  FrmMain form{folder.File("cache"), [this] { ended = true; }, log};
  FakeFileSearch recoveryFiles;
  Recovery recovery{{.editor = form.Editor(),
                     .files = files,
                     .fileSearch = recoveryFiles,
                     .clock = clock,
                     .log = log,
                     .folder = folder.File("recovery"),
                     .scheduleSnapshot = [this] { form.EnableTimer(WatchTimer::Snapshot, true); },
                     .leftoversChanged = [this] { window.OfferLeftovers(); }}};
  GuardedDocument document{form.Editor(), recovery};
  RecentFiles recent{settings, [this] { form.SetRecentFiles(recent.Paths()); }};
  ModSpeak speech{{.voice = voice,
                   .voice2 = voice2,
                   .document = document,
                   .statusBar = form,
                   .messageBoxes = messageBoxes,
                   .pump = pump,
                   .clock = clock,
                   .fileSearch = fileSearch,
                   .log = log,
                   .settings = settings,
                   .extensions = extensions,
                   .startup = startup,
                   .programFolder = folder.Path()}};
  FakeFileDialogs fileDialogs;
  FakeProgressWindow progress;
  Documents documents{{.editor = document,
                       .fileDialogs = fileDialogs,
                       .files = files,
                       .messageBoxes = messageBoxes,
                       .pump = pump,
                       .extensions = extensions,
                       .log = log,
                       .stateChanged = [this] { form.SetTitle(documents.Title()); },
                       .stored = [this] { recovery.Saved(); },
                       .used = [this](const std::string& path) { recent.Add(path); }}};
  ModExport exporter{{.speech = speech,
                      .statusBar = form,
                      .messageBoxes = messageBoxes,
                      .fileDialogs = fileDialogs,
                      .files = files,
                      .progress = progress,
                      .clock = clock,
                      .extensions = extensions}};
  FrmVoiceDialogs voiceDialogs{speech, settings};
  Launches launches{shell, log, folder.Path()};
  ModSettings modSettings{settings};
  FrmHelpDialogs helpDialogs{{.settings = modSettings,
                              .messageBoxes = messageBoxes,
                              .pictureFile = folder.File("hypertext/farbverlauf.jpg"),
                              .titlesObstacle = [this] { return foreground.obstacle; },
                              .applied = [this] { window.SettingsApplied(); },
                              .manageExtensions = [this] { launches.ManageExtensions(); }}};
  FakeForegroundWindow foreground;
  DesktopMonitor monitor{
      {.clipboard = clipboard, .foreground = foreground, .statusBar = form, .speech = speech}};
  Interpreter interpreter{{.speech = speech,
                           .document = document,
                           .statusBar = form,
                           .messageBoxes = messageBoxes,
                           .clipboard = clipboard,
                           .pump = pump,
                           .clock = clock,
                           .fileSearch = fileSearch,
                           .launcher = launcher,
                           .downloader = downloader,
                           .settings = settings,
                           .runLog = log,
                           .scriptFolder = folder.File("scripts"),
                           .fileOfItem = [this](std::int32_t item) { return tasks.GetSelectedItem(item); }}};
  TaskMenu tasks{{.taskPane = form.Tasks(),
                  .fileSearch = fileSearch,
                  .messageBoxes = messageBoxes,
                  .settings = settings,
                  .extensions = extensions,
                  .interpreter = interpreter,
                  .programFolder = folder.Path(),
                  .createScript = [this] { ++editorsOpened; },
                  .reportError = [this](std::int32_t number, const std::string&) { reported = number; }}};
  int editorsOpened = 0;
  std::int32_t reported = 0;
  MainWindow window{{.view = form,
                     .editor = document,
                     .browser = form.Browser(),
                     .taskPane = form.Tasks(),
                     .statusBar = form,
                     .messageBoxes = messageBoxes,
                     .clipboard = clipboard,
                     .shell = shell,
                     .log = log,
                     .settings = settings,
                     .documents = documents,
                     .editing = form,
                     .recent = recent,
                     .recovery = recovery,
                     .speech = speech,
                     .exporter = exporter,
                     .voiceDialogs = voiceDialogs,
                     .extensions = extensions,
                     .monitor = monitor,
                     .interpreter = interpreter,
                     .tasks = tasks,
                     .helpDialogs = helpDialogs,
                     .launches = launches,
                     .startup = startup,
                     .programFolder = folder.Path()}};
};

}  // namespace lorelin
