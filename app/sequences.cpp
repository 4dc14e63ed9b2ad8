#include "app/sequences.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "app/WindowModules.h"
#include "base/paths.h"
#include "base/version.h"
#include "settings/readingLook.h"

namespace lorelin {
namespace {

void SaveVersion(SettingsStore& settings) {
  settings.Save(setting::Version, std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor));
}

void CreateScriptDir(const WindowModules::Edges& edges) {
  for (const std::string name : {"scripts", "temp"}) {
    const std::filesystem::path folder = NativePath(JoinPath(edges.programFolder, {name}));
    std::error_code error;
    if (name == "temp") {
      error = MakePrivateFolder(folder);  // what was read aloud lies there
    } else {
      std::filesystem::create_directory(folder, error);
    }
    if (error) edges.system.log.Write("Ordner " + name + ": " + error.message());
  }
}

void SpeakStartupDocument(SpeechModules& spoken) {
  if (!spoken.startup.speakOnStart) return;
  spoken.startup.loadingInProgress = false;
  spoken.speech.SpeakToolbar();
}

void RefuseParameterScript(const StartupState& startup, MessageBoxes& messageBoxes) {
  if (startup.parameterScript.empty()) return;
  messageBoxes.Show("Can't start VTS Scripts per Parameter!", "Lorelin", MessageIcon::Critical,
                    MessageButtons::Ok);
}

void WriteLastSnapshot(Recovery& recovery) {
  recovery.FinishWriting();
  recovery.SnapshotDue();
  recovery.FinishWriting();
}

void RestoreLook(const WindowModules::Edges& edges) {
  const LookSettings look = LoadLook(edges.spoken.settings);
  if (look != LookSettings{}) edges.lookView.ShowLook(LookOf(look));
}

void KeepReadingPlace(WindowModules& m) {
  m.continued.Holds(true);
  m.readingPlaces.FinishWriting();
}

}  // namespace

std::vector<Step> LoadSequence(WindowModules& m, bool textFollows) {
  const WindowModules::Edges& edges = m.edges;
  SpeechModules& spoken = edges.spoken;
  return {
      {"path", [&] { spoken.settings.Save(setting::Path, edges.programFolder); }},
      {"version", [&] { SaveVersion(spoken.settings); }},
      {"offline", [&] { edges.browser.SetOffline(); }},
      {"loading", [&] { spoken.startup.loadingInProgress = true; }},
      {"extensions", [&] { spoken.extensions.Startup(); }},
      {"toolbar", [&] { edges.view.StretchToolbar(); }},
      {"title timer", [&] { m.timers.Start(WatchTimer::WindowTitle); }},
      {"clipboard timer", [&] { m.timers.Start(WatchTimer::Clipboard); }},
      {"mode",
       [&, textFollows] { m.modes.ChooseInitial(textFollows || !spoken.startup.startupFilePath.empty()); }},
      {"default extension", [&] { m.documents.SetDefaultExtension(".txt"); }},
      {"temporary folder", [&] { spoken.speech.ClearTempFolder(); }},
      {"folders", [&] { CreateScriptDir(edges); }},
      {"wave file", [&] { spoken.speech.SetWaveFile(""); }},
      {"task pane", [&] { m.taskItems.AddBuiltIn(); }},
      {"last document", [&] { m.opening.OpenLast(); }},
      {"scripts", [&] { m.tasks.AddUserdefinedScripts(); }},
      {"export link", [&] { m.taskItems.AddExportLink(); }},
      {"recent files", [&] { edges.view.SetRecentFiles(m.recent.Paths()); }},
      {"recovery", [&] { m.unsaved.Start(); }},
      {"document", [&] { m.opening.OpenAtStart(); }},
      {"speak", [&] { SpeakStartupDocument(spoken); }},
      {"script parameter", [&] { RefuseParameterScript(spoken.startup, edges.messageBoxes); }},
      {"text size", [&] { m.textSize.Restore(); }},
      {"reading look", [&] { RestoreLook(edges); }},
      {"following", [&] { ShowFollowMode(m.Reading()); }},
      {"sleep timer", [&] { m.sleep.Show(); }},
      {"placement", [&] { edges.view.Place(spoken.settings.Get(setting::Placement)); }},
      {"show", [&] { edges.view.ShowWindow(); }},
      {"loaded", [&] { spoken.startup.loadingInProgress = false; }}};
}

std::vector<Step> CloseSequence(WindowModules& m, bool forced) {
  const WindowModules::Edges& edges = m.edges;
  SpeechModules& spoken = edges.spoken;
  // The text first: an extension may hang, and who ends the program by force does not wait for it.
  return {{"recovery", [&] { WriteLastSnapshot(edges.recovery); }},
          {"reading place", [&] { KeepReadingPlace(m); }},
          {"extensions", [&] { spoken.extensions.Close(); }},
          {"LastDoc", [&] { spoken.settings.Save(setting::LastDoc, m.documents.Current().path); }},
          {"placement", [&] { spoken.settings.Save(setting::Placement, edges.view.Placement()); }},
          {"hide", [&] { edges.view.HideWindow(); }},
          {"survey", [&, forced] {
             if (!forced) InviteToSurvey(edges.helpDialogs, spoken.settings, m.launches);
           }}};
}

}  // namespace lorelin
