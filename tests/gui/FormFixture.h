#pragma once

#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/menu.h>
#include <wx/statusbr.h>
#include <wx/timer.h>
#include <wx/toolbar.h>

#include <chrono>
#include <filesystem>

#include "app/WindowModules.h"
#include "desktop/frmHelpDialogs.h"
#include "desktop/frmMain.h"
#include "desktop/frmPronunciationDialogs.h"
#include "desktop/frmReadingLook.h"
#include "desktop/frmVoiceDialogs.h"
#include "desktop/toolkit/WxClipboard.h"
#include "desktop/toolkit/WxEventPump.h"
#include "desktop/toolkit/text.h"
#include "documents/GuardedDocument.h"
#include "documents/Recovery.h"
#include "tests/support/FakeAlarm.h"
#include "tests/support/FakeSystem.h"

namespace lorelin {

// The real main window on the modules, with the engine and the rest of the world as fakes.
class FormFixture : public testing::Test, protected FakeSystem {
 protected:
  FormFixture() {
    form.Attach(&modules);
    settings.Save(setting::Survey, "false");
    std::filesystem::copy(LORELIN_PAGES, folder.File("hypertext"));
  }
  ~FormFixture() override { form.Attach(nullptr); }

  // Lets the window system work until `done`; false after ten seconds.
  bool WaitUntil(const std::function<bool()>& done) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!done()) {
      if (std::chrono::steady_clock::now() > end) return false;
      pump.WaitForEvents();
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

  WxClipboard clipboard;
  WxEventPump pump{log};
  bool ended = false;
  FrmMain form{folder.File("cache"), [this] { ended = true; }, log};
  FakeFileSearch recoveryFiles;
  Recovery recovery{{.editor = form.Editor(),
                     .files = files,
                     .fileSearch = recoveryFiles,
                     .clock = clock,
                     .statusBar = form,
                     .messageBoxes = messageBoxes,
                     .log = log,
                     .folder = folder.File("recovery"),
                     .scheduleSnapshot = [this] { form.EnableTimer(WatchTimer::Snapshot, true); }}};
  GuardedDocument document{form.Editor(), recovery};
  SpeechModules spoken{{.system = system,
                        .voice = voice,
                        .voice2 = voice2,
                        .document = document,
                        .statusBar = form,
                        .messageBoxes = messageBoxes,
                        .pump = pump,
                        .programFolder = folder.Path(),
                        .settingsFolder = folder.File("settings")}};
  SettingsStore& settings = spoken.settings;
  ModAddin& extensions = spoken.extensions;
  ModSpeak& speech = spoken.speech;
  FakeFileDialogs fileDialogs;
  std::function<void()> exportSound;  // what the window's commands do
  std::function<void()> showExports;
  FakeProgressWindow progress;
  FrmVoiceDialogs voiceDialogs{speech, settings,
                               [this] { return std::make_unique<FakeDirectSS>("Probe", calls); }};
  ModSettings modSettings{settings};
  FrmHelpDialogs helpDialogs{{.settings = modSettings,
                              .messageBoxes = messageBoxes,
                              .pictureFile = folder.File("hypertext/farbverlauf.jpg"),
                              .titlesObstacle = [this] { return foreground.obstacle; },
                              .applied = [this] { modules.timers.FollowSettings(); },
                              .manageExtensions = [this] { modules.launches.ManageExtensions(); }}};
  FrmPronunciationDialogs pronunciationDialogs{
      spoken, messageBoxes, [this] { return std::make_unique<FakeDirectSS>("Probe", calls); }};
  int editorsOpened = 0;
  FakeAlarm alarm;
  WindowModules modules{
      {.system = system,
       .spoken = spoken,
       .document = document,
       .recovery = recovery,
       .view = form,
       .editing = form,
       .marks = form.Editor().Marks(),
       .placeBar = form,
       .lookView = form.Editor(),
       .alarm = alarm,
       .browser = form.Browser(),
       .taskPane = form.Tasks(),
       .chapterList = form.Contents(),
       .statusBar = form,
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
       .chooseLook =
           [this] { ChooseReadingLook(&form, settings, form.Editor(), form.Editor().UsualPoints()); },
       .exportSound =
           [this] {
             if (exportSound) exportSound();
           },
       .showExports =
           [this] {
             if (showExports) showExports();
           },
       .privateFolders = {.programFolder = folder.Path(),
                          .cacheFolder = folder.File("cache"),
                          .logFile = folder.File("lorelin.log"),
                          .scriptLogFile = folder.File("taskscripts.log")}}};
  RecentFiles& recent = modules.recent;
  Documents& documents = modules.documents;
  Interpreter& interpreter = modules.interpreter;
  DesktopMonitor& monitor = modules.monitor;
  TaskMenu& tasks = modules.tasks;
  MainWindow& window = modules.window;
};

}  // namespace lorelin
