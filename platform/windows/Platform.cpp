#include "ports/Platform.h"

#include <objbase.h>

#include <memory>
#include <utility>

#include "base/paths.h"
#include "platform/common/AtomicFileWriter.h"
#include "platform/common/DirectorySearch.h"
#include "platform/common/LogFile.h"
#include "platform/common/SystemClock.h"
#include "platform/common/abandonedRuns.h"
#include "platform/common/caseFold.h"
#include "platform/windows/AdvapiRegistry.h"
#include "platform/windows/ComAutomation.h"
#include "platform/windows/ComSoundRendering.h"
#include "platform/windows/CreateProcessLauncher.h"
#include "platform/windows/CryptoChecksums.h"
#include "platform/windows/DirectSSControl.h"
#include "platform/windows/ExplorerShell.h"
#include "platform/windows/ImportJobRunner.h"
#include "platform/windows/MissingSpeech.h"
#include "platform/windows/MutexSingleInstance.h"
#include "platform/windows/NoNaturalVoices.h"
#include "platform/windows/NoRemoteControl.h"
#include "platform/windows/SapiVoice.h"
#include "platform/windows/ShellFileAssociation.h"
#include "platform/windows/UrlmonDownloader.h"
#include "platform/windows/User32ForegroundWindow.h"

namespace lorelin {
namespace {

// The engine that there is; null where Windows has none.
std::unique_ptr<DirectSS> MakeEngine(EventPump& pump, Log& log) {
  if (auto control = DirectSSControl::Create(pump, log)) return control;
  return SapiVoice::Create(pump, log);
}

}  // namespace

PlatformServices MakePlatformServices(bool verbose) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  PlatformServices services;
  services.paths = FindProgramPaths();
  services.clock = std::make_unique<SystemClock>();
  RemoveAbandonedRuns(services.paths.cacheFolder);
  services.log = std::make_unique<LogFile>(services.paths.logFile, *services.clock, verbose);
  services.fileSearch = std::make_unique<DirectorySearch>(&FoldCase);
  services.shell = std::make_unique<ExplorerShell>(
      PathText(NativePath(services.paths.programFile).parent_path()), *services.log);
  services.launcher = std::make_unique<CreateProcessLauncher>();
  services.downloader = std::make_unique<UrlmonDownloader>(*services.log);
  services.importer = std::make_unique<ImportJobRunner>(
      PathText(NativePath(services.paths.programFile).replace_filename("lorelin-import.exe")));
  services.fileWriter = std::make_unique<AtomicFileWriter>();
  services.scriptLog = std::make_unique<LogFile>(services.paths.scriptLogFile, *services.clock, verbose);
  services.automation = std::make_unique<ComAutomation>(*services.log);
  services.foreground = std::make_unique<User32ForegroundWindow>();
  auto registry = std::make_unique<AdvapiRegistry>(*services.log);
  services.fileAssociation = std::make_unique<ShellFileAssociation>(*registry);
  services.registry = std::move(registry);
  services.remote = std::make_unique<NoRemoteControl>();
  services.soundRendering = std::make_unique<ComSoundRendering>(
      [&log = *services.log](EventPump& pump) -> std::unique_ptr<DirectSS> {
        auto engine = MakeEngine(pump, log);
        return engine ? std::move(engine) : std::make_unique<MissingSpeech>(pump);
      },
      services.paths.cacheFolder);
  services.selectedText = std::make_unique<NoSelectedText>();
  services.voiceDownloads = std::make_unique<WholeDownloads>(*services.downloader);
  services.checksums = std::make_unique<CryptoChecksums>();
  services.voiceArchives = std::make_unique<NoVoiceArchives>();
  services.naturalVoices = std::make_unique<NoNaturalVoices>();
  services.singleInstance = std::make_unique<MutexSingleInstance>("Lorelin" + services.paths.lockFile);
  return services;
}

std::unique_ptr<DirectSS> MakeSpeechInstance(const PlatformServices& services, EventPump& pump, bool,
                                             std::function<void(const std::string&)> condition,
                                             InstanceStart) {
  if (auto engine = MakeEngine(pump, *services.log)) return engine;
  services.log->Write(MissingSpeech::kReason);
  if (condition) pump.Post([condition] { condition(MissingSpeech::kReason); });
  return std::make_unique<MissingSpeech>(pump);
}

// All of them start at once.
void StartInstance(DirectSS&) {}

// The voices of the system's own engines are not this program's to renew.
void RenewVoices(DirectSS&) {}

}  // namespace lorelin
