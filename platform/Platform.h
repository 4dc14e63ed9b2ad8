#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>

#include "platform/Automation.h"
#include "platform/Clock.h"
#include "platform/Downloader.h"
#include "platform/EventPump.h"
#include "platform/FileAssociation.h"
#include "platform/FileSearch.h"
#include "platform/FileWriter.h"
#include "platform/ForegroundWindow.h"
#include "platform/Log.h"
#include "platform/ProgramLauncher.h"
#include "platform/ProgramPaths.h"
#include "platform/Registry.h"
#include "platform/Shell.h"
#include "platform/SingleInstance.h"
#include "speech/DirectSS.h"

namespace lorelin {

// The adapters of the system that need no window. One implementation per system; both front ends begin with
// it.
struct PlatformServices {
  ProgramPaths paths;
  std::unique_ptr<Clock> clock;
  std::unique_ptr<Log> log;
  std::unique_ptr<FileSearch> fileSearch;
  std::unique_ptr<Shell> shell;
  std::unique_ptr<ProgramLauncher> launcher;
  std::unique_ptr<Downloader> downloader;
  std::unique_ptr<FileWriter> fileWriter;
  std::unique_ptr<Log> scriptLog;  // what task scripts did
  std::unique_ptr<Automation> automation;
  std::unique_ptr<ForegroundWindow> foreground;
  std::unique_ptr<FileAssociation> fileAssociation;
  std::unique_ptr<SingleInstance> singleInstance;
  std::unique_ptr<Registry> registry;
  std::string registryNotice;  // German; "" when the settings are as they should be
  bool settingsLost = false;   // the notice has to be confirmed by a person
};

// `verbose` copies the log to standard error. Never throws.
[[nodiscard]] PlatformServices MakePlatformServices(bool verbose);

// An engine instance. `audible` prepares the sound device. `notice` gets German sentences for the status bar,
// on the pump's thread; the services and the pump must outlive the instance.
[[nodiscard]] std::unique_ptr<DirectSS> MakeSpeechInstance(const PlatformServices& services, EventPump& pump,
                                                           bool audible,
                                                           std::function<void(const std::string&)> notice);

// The arguments of the process, its own name left out, as the one string that start-up reads.
[[nodiscard]] std::string CommandLineText(std::span<char* const> arguments);

}  // namespace lorelin
