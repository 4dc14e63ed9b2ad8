#include "app/MainWindow.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "base/version.h"

namespace lorelin {
namespace {

constexpr int kEscapeKey = 27;
constexpr int kF4Key = 115;
constexpr std::string_view kSpeechTaskGroup = "Lorelin";
constexpr std::string_view kExportGroup = "Export";
constexpr std::int32_t kExportItem = 1001;
constexpr std::string_view kRecoveryGroup = "Nicht gespeicherte Texte";
constexpr std::int32_t kFirstLeftover = 1100;
constexpr std::int32_t kDiscardLeftovers = 1199;

}  // namespace

MainWindow::MainWindow(Parts parts)
    : parts_(std::move(parts)),
      links_({.view = parts_.view,
              .editor = parts_.editor,
              .messageBoxes = parts_.messageBoxes,
              .shell = parts_.shell,
              .log = parts_.log,
              .textmode = [this] { Textmode(); },
              .openDoc = [this] { parts_.documents.OpenDoc(); },
              .showHomePage = [this] { ShowHomePage(); },
              .speak = [this] { RunCommand("SpeakDocument"); }}) {
  parts_.browser.OnNavigate([this](std::string& address) { return links_.BeforeNavigate(address); });
  FillCommands();
  parts_.speech.OnExportAvailable(
      [this](bool available) { parts_.view.EnableToolbarButton("Exportieren", available); });
  parts_.taskPane.OnClick(
      [this](std::int32_t number, TaskPaneRequest request) { TaskItemClicked(number, request); });
}

MainWindow::~MainWindow() {
  parts_.speech.OnExportAvailable({});
  parts_.taskPane.OnClick({});
  parts_.browser.OnNavigate({});
}

void MainWindow::FillCommands() {
  commands_.Add("Speak", [this] { parts_.speech.SpeakMenu(); });
  commands_.Add("SpeakDocument", [this] { parts_.speech.SpeakToolbar(); });
  commands_.Add("ReadFromCursor", [this] { parts_.speech.ReadFromCursor(); });
  commands_.Add("Stop", [this] { parts_.speech.Stop(); });
  commands_.Add("Pause", [this] { parts_.speech.PauseSpeech(); });
  commands_.Add("Textmode", [this] { Textmode(); });
  commands_.Add("InteractiveMode", [this] { InteractiveMode(); });
  commands_.Add("ExitLo", [this] { ExitLo(); });
  commands_.Add("Cut", [this] { CutSelection(); });
  commands_.Add("Copy", [this] { CopySelection(); });
  commands_.Add("Insert", [this] { parts_.editor.ReplaceSelection(parts_.clipboard.Text()); });
  commands_.Add("Delete", [this] { parts_.editor.ReplaceSelection(""); });
  commands_.Add("NewDoc", [this] { parts_.documents.NewDoc(); });
  commands_.Add("OpenDoc", [this] { OpenDoc(); });
  commands_.Add("OpenRecent", [this] { RecentFileChosen(0); });
  commands_.Add("Undo", [this] { parts_.editing.Undo(); });
  commands_.Add("Redo", [this] { parts_.editing.Redo(); });
  commands_.Add("SelectAll", [this] { parts_.editing.SelectAll(); });
  commands_.Add("Find", [this] { parts_.editing.ShowSearch(false); });
  commands_.Add("FindAgain", [this] { parts_.editing.SearchAgain(); });
  commands_.Add("Replace", [this] { parts_.editing.ShowSearch(true); });
  commands_.Add("Larger", [this] { parts_.editing.Zoom(1); });
  commands_.Add("Smaller", [this] { parts_.editing.Zoom(-1); });
  commands_.Add("UsualSize", [this] { parts_.editing.Zoom(0); });
  commands_.Add("SaveDoc", [this] { parts_.documents.SaveDoc(); });
  commands_.Add("SaveAs", [this] { parts_.documents.SaveAs(); });
  commands_.Add("ExportDoc", [this] { parts_.exporter.ExportDoc(); });
  commands_.Add("ChooseVoice", [this] { parts_.voiceDialogs.ChooseVoice(); });
  commands_.Add("ChangeVolume", [this] { parts_.voiceDialogs.ChangeParameter(VoiceParameter::Volume); });
  commands_.Add("ChangeSpeed", [this] { parts_.voiceDialogs.ChangeParameter(VoiceParameter::Speed); });
  commands_.Add("ChangePitch", [this] { parts_.voiceDialogs.ChangeParameter(VoiceParameter::Pitch); });
  commands_.Add("Settings", [this] { parts_.helpDialogs.ShowSettings(); });
  commands_.Add("ManageExtensions", [this] { parts_.launches.ManageExtensions(); });
  commands_.Add("ShowHelp", [this] { ShowPage("hilfe.htm"); });
  commands_.Add("GetMoreVoices", [this] { parts_.launches.GetMoreVoices(); });
  commands_.Add("ReportError", [this] { parts_.launches.ReportError(); });
  commands_.Add("MoreInfo", [this] { ShowPage("About.htm"); });
  commands_.Add("SearchForUpdates", [this] { parts_.launches.SearchForUpdates(); });
  commands_.Add("About", [this] { parts_.helpDialogs.ShowAbout(); });
}

void MainWindow::Guarded(std::string_view what, const std::function<void()>& action) {
  try {
    action();
  } catch (const std::exception& error) {
    parts_.log.Write(std::string(what) + ": " + error.what());
  }
}

void MainWindow::RunSteps(std::string_view sequence, const std::vector<Step>& steps) {
  for (const Step& step : steps) Guarded(std::string(sequence) + ", " + std::string(step.name), step.run);
}

void MainWindow::Load() {
  if (loaded_) return;
  loaded_ = true;
  const std::string version = std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor);
  RunSteps("Laden",
           {{"path", [&] { parts_.settings.Save(setting::Path, parts_.programFolder); }},
            {"version", [&] { parts_.settings.Save(setting::Version, version); }},
            {"offline", [&] { parts_.browser.SetOffline(); }},
            {"loading", [&] { parts_.startup.loadingInProgress = true; }},
            {"extensions", [&] { parts_.extensions.Startup(); }},
            {"toolbar", [&] { parts_.view.StretchToolbar(); }},
            {"home page",
             [&] {
               homePage_ = JoinPath(parts_.programFolder, {"hypertext", "home.htm"});
             }},
            {"title timer", [&] { StartTimer(WatchTimer::WindowTitle, setting::ReadTitleOnAppChange); }},
            {"clipboard timer", [&] { StartTimer(WatchTimer::Clipboard, setting::ReadClipboardOnChange); }},
            {"mode", [&] { ChooseInitialMode(); }},
            {"default extension", [&] { parts_.documents.SetDefaultExtension(".txt"); }},
            {"temporary folder", [&] { parts_.speech.ClearTempFolder(); }},
            {"folders", [&] { CreateScriptDir(); }},
            {"wave file", [&] { parts_.speech.SetWaveFile(""); }},
            {"task pane", [&] { FillTaskPane(); }},
            {"last document", [&] { OpenLastDocument(); }},
            {"scripts", [&] { parts_.tasks.AddUserdefinedScripts(); }},
            {"export link", [&] { AddExportLink(); }},
            {"recent files", [&] { parts_.view.SetRecentFiles(parts_.recent.Paths()); }},
            {"recovery", [&] { AddRecovery(); }},
            {"document", [&] { OpenStartupDocument(); }},
            {"speak", [&] { SpeakStartupDocument(); }},
            {"script parameter", [&] { RefuseParameterScript(); }},
            {"placement", [&] { parts_.view.Place(parts_.settings.Get(setting::Placement)); }},
            {"show", [&] { parts_.view.ShowWindow(); }},
            {"loaded", [&] { parts_.startup.loadingInProgress = false; }}});
}

void MainWindow::StartTimer(WatchTimer timer, const SettingKey& key) {
  if (IsOn(key, parts_.settings.Get(key))) parts_.view.EnableTimer(timer, true);
}

void MainWindow::ChooseInitialMode() {
  if (!IsOn(setting::ShowWB, parts_.settings.Get(setting::ShowWB))) {
    ShowEditorPane();
    MarkMode(false);
    return;
  }
  InteractiveMode();
  ShowHomePage();
}

void MainWindow::ShowHomePage() {
  parts_.browser.Navigate(homePage_);
}

void MainWindow::SettingsApplied() {
  const auto follow = [this](WatchTimer timer, const SettingKey& key) {
    parts_.view.EnableTimer(timer, IsOn(key, parts_.settings.Get(key)));
  };
  follow(WatchTimer::WindowTitle, setting::ReadTitleOnAppChange);
  follow(WatchTimer::Clipboard, setting::ReadClipboardOnChange);
}

void MainWindow::FillTaskPane() {
  parts_.taskPane.AddGroup(kRecoveryGroup);  // the first, once it has something to offer
  parts_.taskPane.AddGroup(kSpeechTaskGroup);
  for (const TaskPaneEntry& task : SpeechTasks()) {
    parts_.taskPane.AddItem(kSpeechTaskGroup, task.number, task.caption);
  }
}

void MainWindow::OpenLastDocument() {
  if (!IsOn(setting::ShowLastDoc, parts_.settings.Get(setting::ShowLastDoc))) return;
  const std::string path = parts_.settings.Get(setting::LastDocAtStart);
  parts_.documents.SetPath(path);
  Guarded("Letztes Dokument", [&] { parts_.documents.Load(path); });
  Textmode();
}

void MainWindow::OpenStartupDocument() {
  const std::string& path = parts_.startup.startupFilePath;
  if (path.empty()) return;
  Guarded("Dokument beim Start", [&] { parts_.documents.Load(path); });
  // The name of a file that could not be loaded is better than an empty window.
  if (parts_.editor.Text().empty()) parts_.editor.SetText(path);
  Textmode();
}

void MainWindow::SpeakStartupDocument() {
  if (!parts_.startup.speakOnStart) return;
  parts_.startup.loadingInProgress = false;
  parts_.speech.SpeakToolbar();
}

void MainWindow::RefuseParameterScript() {
  if (parts_.startup.parameterScript.empty()) return;
  parts_.messageBoxes.Show("Can't start VTS Scripts per Parameter!", "Lorelin", MessageIcon::Critical,
                           MessageButtons::Ok);
}

void MainWindow::AddExportLink() {
  parts_.taskPane.AddGroup(kExportGroup);
  parts_.taskPane.AddItem(kExportGroup, kExportItem, "Sprachausgabe als WAV speichern",
                          TaskPaneRequest::ExportLink);
}

void MainWindow::AddRecovery() {
  parts_.recovery.Start();
  if (parts_.recovery.Leftovers().empty()) return;
  parts_.statusBar.SetMessage("Ein nicht gespeicherter Text ist noch da: links unter „" +
                              std::string(kRecoveryGroup) + "“.");
}

void MainWindow::OfferLeftovers() {
  parts_.taskPane.AddGroup(kRecoveryGroup);
  std::int32_t number = kFirstLeftover;
  for (const Recovery::Leftover& leftover : parts_.recovery.Leftovers()) {
    parts_.taskPane.AddItem(kRecoveryGroup, number++, leftover.beginning + " (" + leftover.time + ")",
                            TaskPaneRequest::Restore);
  }
  if (number > kFirstLeftover) {
    parts_.taskPane.AddItem(kRecoveryGroup, kDiscardLeftovers, "Alle verwerfen", TaskPaneRequest::Restore);
  }
}

void MainWindow::RestoreClicked(std::int32_t number) {
  const auto& leftovers = parts_.recovery.Leftovers();
  const auto index = static_cast<std::size_t>(number - kFirstLeftover);
  if (number >= kFirstLeftover && index < leftovers.size()) return RestoreLeftover(leftovers[index]);
  if (number != kDiscardLeftovers) return;
  if (parts_.messageBoxes.Show("Möchten Sie die nicht gespeicherten Texte endgültig verwerfen?", "Frage",
                               MessageIcon::Question, MessageButtons::YesNo) == MessageAnswer::Yes) {
    parts_.recovery.DiscardLeftovers();
  }
}

// Loading may add the text that is there now to the list, which moves the others.
void MainWindow::RestoreLeftover(const Recovery::Leftover& leftover) {
  const std::string file = leftover.file;
  try {
    parts_.documents.Restore(file);
  } catch (const RuntimeError& error) {
    parts_.messageBoxes.Show("Der Text konnte nicht geladen werden: " + std::string(error.what()), "Fehler",
                             MessageIcon::Exclamation, MessageButtons::Ok);
    return;
  }
  parts_.recovery.Adopt(file);
  Textmode();
}

void MainWindow::CreateScriptDir() {
  for (const auto name : {"scripts", "temp"}) {
    std::error_code error;
    std::filesystem::create_directory(NativePath(JoinPath(parts_.programFolder, {name})), error);
    if (error) parts_.log.Write(std::string("Ordner ") + name + ": " + error.message());
  }
}

void MainWindow::ShowEditorPane() {
  parts_.view.ShowEditor(true);
  parts_.view.ShowBrowser(false);
}

void MainWindow::MarkMode(bool interactive) {
  parts_.view.CheckMenuEntry("mnuInternet", interactive);
  parts_.view.CheckMenuEntry("mnuTextmode", !interactive);
}

void MainWindow::Textmode() {
  Load();
  ShowEditorPane();
  Guarded("Fokus", [this] { parts_.view.FocusEditor(); });
  MarkMode(false);
}

void MainWindow::InteractiveMode() {
  Load();
  parts_.view.ShowEditor(false);
  parts_.view.ShowBrowser(true);
  MarkMode(true);
}

void MainWindow::ShowPage(std::string_view name) {
  InteractiveMode();
  parts_.browser.Navigate(JoinPath(parts_.programFolder, {"hypertext", name}));
}

void MainWindow::CopySelection() {
  const std::string selected = parts_.editor.SelectedText();
  // Nothing selected: what the clipboard holds is worth more than nothing.
  if (!selected.empty()) parts_.clipboard.SetText(selected);
}

void MainWindow::CutSelection() {
  CopySelection();
  parts_.editor.ReplaceSelection("");
}

void MainWindow::ExitLo() {
  if (parts_.documents.MayExit()) CloseRequested();
}

// A document that was opened wants to be seen.
void MainWindow::OpenDoc() {
  if (parts_.documents.OpenDoc()) Textmode();
}

// Nobody chose this file in a dialog that would have shown what there is.
void MainWindow::OpenFile(const std::string& path) {
  if (!FileExists(path)) {
    parts_.messageBoxes.Show("Die Datei „" + path + "“ kann nicht gelesen werden oder ist nicht mehr da.",
                             "Öffnen", MessageIcon::Exclamation, MessageButtons::Ok);
    parts_.recent.Remove(path);
    return;
  }
  if (parts_.documents.OpenPath(path)) Textmode();
}

void MainWindow::RecentFileChosen(std::size_t index) {
  const std::vector<std::string> paths = parts_.recent.Paths();
  if (index < paths.size()) OpenFile(paths[index]);
}

void MainWindow::FileDropped(const std::string& path) {
  OpenFile(path);
}

void MainWindow::TimerTicked(WatchTimer timer) {
  // The windows are drawn while an extension works; what is new on the desktop has time until the next tick.
  if (timer != WatchTimer::Snapshot && parts_.extensions.IsCalling()) return;
  switch (timer) {
    case WatchTimer::Clipboard:
      return Guarded("Zwischenablage", [this] { parts_.monitor.LookAtClipboard(); });
    case WatchTimer::WindowTitle:
      return Guarded("Fenstertitel", [this] { parts_.monitor.LookAtForeground(); });
    case WatchTimer::Snapshot:
      return parts_.recovery.SnapshotDue();
  }
}

void MainWindow::RunCommand(std::string_view command) {
  try {
    if (!commands_.Run(command)) parts_.log.Write("Unbekannter Befehl: " + std::string(command));
  } catch (const RuntimeError& error) {
    parts_.messageBoxes.Show(std::string(error.what()) + " (" + std::to_string(error.Number()) + ")",
                             "Fehler", MessageIcon::Exclamation, MessageButtons::Ok);
  } catch (const std::exception& error) {
    parts_.log.Write(std::string(command) + ": " + error.what());
    parts_.messageBoxes.Show(error.what(), "Fehler", MessageIcon::Exclamation, MessageButtons::Ok);
  }
}

void MainWindow::ToolbarClicked(std::string_view key) {
  const auto buttons = ToolbarButtons();
  const auto found =
      std::find_if(buttons.begin(), buttons.end(), [&](const auto& b) { return b.key == key; });
  if (found != buttons.end() && !key.empty()) RunCommand(found->command);
}

void MainWindow::TaskItemClicked(std::int32_t number, TaskPaneRequest request) {
  if (request == TaskPaneRequest::ExportLink) return ExportLinkClicked();
  if (request == TaskPaneRequest::Restore) return RestoreClicked(number);
  const auto tasks = SpeechTasks();
  const auto found =
      std::find_if(tasks.begin(), tasks.end(), [&](const auto& t) { return t.number == number; });
  if (found != tasks.end()) return RunCommand(found->command);
  parts_.tasks.Clicked(number);
}

void MainWindow::ExportLinkClicked() {
  if (FileExists(parts_.speech.TempWavPath())) return RunCommand("ExportDoc");
  parts_.messageBoxes.Show("Diese Funktion steht Ihnen erst nach einem Exportvorgang zur Verfügung.",
                           "Information", MessageIcon::Information, MessageButtons::Ok);
}

bool MainWindow::KeyPressed(int code) {
  if (code == kEscapeKey) {
    parts_.interpreter.Cancel();
    RunCommand("Stop");
    return true;
  }
  if (code == kF4Key) {
    if (!parts_.shell.OpenFolder(parts_.programFolder)) parts_.log.Write("Kein Dateimanager für F4");
    return true;
  }
  return false;
}

void MainWindow::EditorChanged(std::size_t characters) {
  parts_.statusBar.SetFirstPanel(std::to_string(characters) + " Zeichen.");
  parts_.documents.Changed();
  parts_.recovery.Changed();
}

void MainWindow::CloseRequested(bool forced) {
  if (closing_ || (!forced && !parts_.mayClose())) return;
  closing_ = true;
  parts_.interpreter.Cancel();
  RunSteps("Schließen",
           {{"extensions", [&] { parts_.extensions.Close(); }},
            {"LastDoc", [&] { parts_.settings.Save(setting::LastDoc, parts_.documents.Current().path); }},
            {"recovery",
             [&] {
               parts_.recovery.SnapshotDue();
               parts_.recovery.FinishWriting();
             }},
            {"placement", [&] { parts_.settings.Save(setting::Placement, parts_.view.Placement()); }},
            {"hide", [&] { parts_.view.HideWindow(); }},
            {"survey", [&] {
               if (!forced) InviteToSurvey(parts_.helpDialogs, parts_.settings, parts_.launches);
             }}});
  parts_.view.EndProgram();
}

void MainWindow::Unloaded() {
  parts_.interpreter.Cancel();
  if (std::exchange(closing_, true)) return;
  parts_.view.EndProgram();
}

}  // namespace lorelin
