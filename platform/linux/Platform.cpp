#include "ports/Platform.h"

#include <cstdlib>
#include <utility>

#include "base/paths.h"
#include "platform/common/AtomicFileWriter.h"
#include "platform/common/DirectorySearch.h"
#include "platform/common/LogFile.h"
#include "platform/common/SystemClock.h"
#include "platform/common/abandonedRuns.h"
#include "platform/linux/AtspiForegroundWindow.h"
#include "platform/linux/AtspiSelectedText.h"
#include "platform/linux/CurlDownloader.h"
#include "platform/linux/CurlResumingDownloader.h"
#include "platform/linux/DBusAutomation.h"
#include "platform/linux/EngineClient.h"
#include "platform/linux/EngineSoundRendering.h"
#include "platform/linux/EngineVoices.h"
#include "platform/linux/FlockSingleInstance.h"
#include "platform/linux/GlibChecksums.h"
#include "platform/linux/ImportProcessRunner.h"
#include "platform/linux/LibarchiveVoices.h"
#include "platform/linux/MprisRemoteControl.h"
#include "platform/linux/SpawnLauncher.h"
#include "platform/linux/SqliteRegistry.h"
#include "platform/linux/XcbForegroundWindow.h"
#include "platform/linux/XdgFileAssociation.h"
#include "platform/linux/XdgShell.h"

namespace lorelin {

PlatformServices MakePlatformServices(bool verbose) {
  PlatformServices services;
  services.paths = FindProgramPaths();
  services.clock = std::make_unique<SystemClock>();
  RemoveAbandonedRuns(services.paths.cacheFolder);
  services.log = std::make_unique<LogFile>(services.paths.logFile, *services.clock, verbose);
  services.fileSearch = std::make_unique<DirectorySearch>();
  services.shell = std::make_unique<XdgShell>(PathText(NativePath(services.paths.engineFile).parent_path()),
                                              *services.log);
  services.launcher = std::make_unique<SpawnLauncher>();
  services.downloader = std::make_unique<CurlDownloader>(*services.log);
  services.importer = std::make_unique<ImportProcessRunner>(
      PathText(NativePath(services.paths.engineFile).replace_filename("lorelin-import")));
  services.fileWriter = std::make_unique<AtomicFileWriter>();
  services.scriptLog = std::make_unique<LogFile>(services.paths.scriptLogFile, *services.clock, verbose);
  services.automation = std::make_unique<DBusAutomation>(*services.log);
  // Below Wayland an X server knows only the windows of old programs.
  const char* const wayland = std::getenv("WAYLAND_DISPLAY");
  if (wayland != nullptr && *wayland != '\0') {
    services.foreground = std::make_unique<AtspiForegroundWindow>(*services.log);
  } else {
    services.foreground = std::make_unique<XcbForegroundWindow>(*services.log);
  }
  const char* const dataFolders = std::getenv("XDG_DATA_DIRS");
  services.fileAssociation = std::make_unique<XdgFileAssociation>(
      services.paths.desktopFolder, dataFolders != nullptr ? dataFolders : "", *services.fileWriter,
      *services.launcher, *services.log);
  services.singleInstance = std::make_unique<FlockSingleInstance>(services.paths.lockFile);
  services.remote = std::make_unique<MprisRemoteControl>(*services.log);
  services.voiceDownloads = std::make_unique<CurlResumingDownloader>(*services.log);
  services.checksums = std::make_unique<GlibChecksums>();
  services.voiceArchives = std::make_unique<LibarchiveVoices>();
  services.naturalVoices = std::make_unique<EngineVoices>();
  services.selectedText = std::make_unique<AtspiSelectedText>();
  services.soundRendering = std::make_unique<EngineSoundRendering>(
      services.paths.engineFile, services.paths.cacheFolder, *services.clock, *services.log);
  OpenedRegistry opened = SqliteRegistry::Open(services.paths.registryFile, *services.log);
  services.registry = std::move(opened.registry);
  services.registryNotice = std::move(opened.notice);
  services.settingsLost = opened.lost;
  services.preparesVoices = true;
  return services;
}

std::unique_ptr<DirectSS> MakeSpeechInstance(const PlatformServices& services, EventPump& pump, bool audible,
                                             std::function<void(const std::string&)> condition,
                                             InstanceStart start) {
  return std::make_unique<EngineClient>(
      EngineClient::Options{
          .engineFile = services.paths.engineFile,
          .audible = audible,
          .folder = audible ? std::string() : (NativePath(services.paths.programFolder) / "temp").string(),
          .condition = std::move(condition),
          .start = start},
      pump, *services.clock, *services.log);
}

void StartInstance(DirectSS& instance) {
  if (auto* const client = dynamic_cast<EngineClient*>(&instance)) client->Start();
}

void RenewVoices(DirectSS& instance) {
  if (auto* const client = dynamic_cast<EngineClient*>(&instance)) client->RenewVoices();
}

}  // namespace lorelin
