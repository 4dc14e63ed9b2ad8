#include "cli/runScript.h"

#include <filesystem>
#include <iostream>
#include <optional>
#include <system_error>

#include "base/RuntimeError.h"
#include "base/TaskPump.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "cli/Failure.h"
#include "cli/WaveCollector.h"
#include "cli/chosenVoice.h"
#include "cli/consolePorts.h"
#include "cli/files.h"
#include "cli/interruption.h"
#include "cli/overrideSettings.h"
#include "platform/common/console.h"
#include "ports/Platform.h"
#include "scripts/interpreter.h"
#include "speech/SilentVoice.h"
#include "speech/SpeechModules.h"

namespace lorelin::cli {
namespace {

namespace fs = std::filesystem;

// The two instances: one that is heard and one that renders; or, for a WAV file, the one that renders and
// another that follows it.
class Instances {
 public:
  Instances(const PlatformServices& services, EventPump& pump, const std::string& waveFile)
      : rendering_(Make(services, pump, false)) {
    if (waveFile.empty()) {
      audible_ = Make(services, pump, true);
    } else {
      collector_.emplace(*rendering_, waveFile);
      follower_.emplace(*collector_);
    }
  }
  [[nodiscard]] DirectSS& Voice() { return audible_ ? *audible_ : *follower_; }
  [[nodiscard]] DirectSS& Voice2() { return collector_ ? *collector_ : *rendering_; }
  [[nodiscard]] bool Speaking() { return Voice().Speaking() || Voice2().Speaking(); }
  void FinishFile() {
    if (collector_ && !collector_->Finish()) throw Failure(ExitCode::NoTarget, collector_->Problem());
  }

 private:
  static std::unique_ptr<DirectSS> Make(const PlatformServices& services, EventPump& pump, bool audible) {
    return MakeSpeechInstance(services, pump, audible, &TellCondition);
  }

  std::unique_ptr<DirectSS> rendering_;
  std::unique_ptr<DirectSS> audible_;
  std::optional<WaveCollector> collector_;
  std::optional<SilentVoice> follower_;
};

ExitCode CodeOf(const Interpreter& interpreter) {
  switch (interpreter.LastEnd()) {
    case ScriptEnd::LastLine:
      return interpreter.LastErrors() > 0 ? ExitCode::ScriptErrors : ExitCode::Done;
    case ScriptEnd::Itself:
      return ExitCode::ScriptStopped;
    case ScriptEnd::Cancelled:
      return ExitCode::Interrupted;
    case ScriptEnd::AfterError:
      return ExitCode::NotToTheEnd;
    case ScriptEnd::Forbidden:
      return ExitCode::Forbidden;
  }
  return ExitCode::Done;
}

// A script's own files are found where it lies; everything that it names, where the user stands.
void RequireScript(const std::string& script) {
  try {
    (void)ReadFileBytes(script);
  } catch (const RuntimeError& error) {
    throw Failure(ExitCode::NoInput, "„" + script + "“ kann nicht gelesen werden: " + error.what() + ".");
  }
}

// Where texts are rendered to that no command gives a file: away from the window's own, which it empties.
class RenderingFolder {
 public:
  explicit RenderingFolder(const std::string& cacheFolder)
      : folder_(NativePath(cacheFolder) / ("run-" + std::to_string(ProcessNumber()))) {
    for (const fs::path& folder : {folder_.parent_path(), folder_, folder_ / "temp"})
      MakePrivateFolder(folder);
  }
  ~RenderingFolder() {
    std::error_code error;
    fs::remove_all(folder_, error);
  }
  RenderingFolder(const RenderingFolder&) = delete;
  RenderingFolder& operator=(const RenderingFolder&) = delete;
  [[nodiscard]] std::string Path() const { return PathText(folder_); }

 private:
  fs::path folder_;
};

// Here nobody can press the key that goes on.
void RequireSpeechGoesOn(const ModSpeak& speech) {
  if (!speech.Held()) return;
  throw Failure(
      ExitCode::NotToTheEnd,
      "Das Taskscript hat die Sprachausgabe mit „Pause“ angehalten und nicht fortgesetzt; der Rest wird "
      "nicht vorgelesen.");
}

}  // namespace

ExitCode RunScript(const Options& options) {
  const std::string& script = options.scripts.front();
  RequireScript(script);
  if (!options.waveFile.empty()) RequireTarget(options.waveFile, script);
  const fs::path path = fs::absolute(NativePath(script));
  const std::string name = PathText(path.filename());

  const PlatformServices services = MakePlatformServices(options.verbose);
  if (!services.registryNotice.empty()) std::cerr << services.registryNotice << '\n';
  TaskPump pump;
  ConsoleMessageBoxes messageBoxes(options.answer);
  ConsoleStatusBar statusBar(options.verbose || ErrorIsTerminal());
  ConsoleDocument document;
  ConsoleClipboard clipboard;
  const RenderingFolder renderingFolder(services.paths.cacheFolder);
  Instances instances(services, pump, options.waveFile);
  SpeechModules spoken({.system = services.Ports(),
                        .voice = instances.Voice(),
                        .voice2 = instances.Voice2(),
                        .document = document,
                        .statusBar = statusBar,
                        .messageBoxes = messageBoxes,
                        .pump = pump,
                        .programFolder = renderingFolder.Path(),
                        .settingsFolder = services.paths.settingsFolder});
  OverrideSettings(spoken.settings, WithChosenVoice(options, instances.Voice()));
  Interpreter interpreter({.speech = spoken.speech,
                           .document = document,
                           .statusBar = statusBar,
                           .messageBoxes = messageBoxes,
                           .clipboard = clipboard,
                           .pump = pump,
                           .clock = *services.clock,
                           .fileSearch = *services.fileSearch,
                           .launcher = *services.launcher,
                           .downloader = *services.downloader,
                           .settings = spoken.settings,
                           .runLog = *services.scriptLog,
                           .scriptFolder = PathText(path.parent_path()),
                           .fileOfItem = [&](std::int32_t) { return name; },
                           .homeFolder = services.paths.homeFolder,
                           .stopKey = "Strg+C",
                           .mayExport = !options.denyRead});
  pump.OnTurn([] {
    HandleSystemEvents();
    ThrowIfInterrupted();
  });
  spoken.speech.SetWaveFile("");
  interpreter.SetCurrentScriptFile(name);
  spoken.extensions.TaskScript(name);
  interpreter.ExecuteSkript(1);
  while (instances.Speaking()) {
    RequireSpeechGoesOn(spoken.speech);
    pump.WaitForEvents();
  }
  pump.RunPendingEvents();
  instances.FinishFile();
  const ExitCode code = CodeOf(interpreter);
  if (code == ExitCode::Done && spoken.speech.FailedFiles() > 0) return ExitCode::ScriptErrors;
  return code;
}

}  // namespace lorelin::cli
