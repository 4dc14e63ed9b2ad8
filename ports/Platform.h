#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>

#include "ports/Automation.h"
#include "ports/Checksums.h"
#include "ports/Clock.h"
#include "ports/DirectSS.h"
#include "ports/Downloader.h"
#include "ports/EventPump.h"
#include "ports/FileAssociation.h"
#include "ports/FileSearch.h"
#include "ports/FileWriter.h"
#include "ports/ForegroundWindow.h"
#include "ports/ImportProcess.h"
#include "ports/Log.h"
#include "ports/NaturalVoices.h"
#include "ports/ProgramLauncher.h"
#include "ports/ProgramPaths.h"
#include "ports/Registry.h"
#include "ports/RemoteControl.h"
#include "ports/ResumingDownloader.h"
#include "ports/SelectedText.h"
#include "ports/Shell.h"
#include "ports/SingleInstance.h"
#include "ports/SoundRendering.h"
#include "ports/SystemPorts.h"
#include "ports/VoiceArchives.h"

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
  std::unique_ptr<ImportProcess> importer;
  std::unique_ptr<FileWriter> fileWriter;
  std::unique_ptr<Log> scriptLog;  // what task scripts did
  std::unique_ptr<Automation> automation;
  std::unique_ptr<ForegroundWindow> foreground;
  std::unique_ptr<FileAssociation> fileAssociation;
  std::unique_ptr<SingleInstance> singleInstance;
  std::unique_ptr<RemoteControl> remote;
  std::unique_ptr<SelectedText> selectedText;
  std::unique_ptr<ResumingDownloader> voiceDownloads;
  std::unique_ptr<Checksums> checksums;
  std::unique_ptr<VoiceArchives> voiceArchives;
  std::unique_ptr<NaturalVoices> naturalVoices;
  std::unique_ptr<SoundRendering> soundRendering;
  std::unique_ptr<Registry> registry;
  std::string registryNotice;   // German; "" when the settings are as they should be
  bool settingsLost = false;    // the notice has to be confirmed by a person
  bool preparesVoices = false;  // an instance gets a voice ready as soon as it is told which one

  [[nodiscard]] SystemPorts Ports() const {
    return {*registry,   *fileWriter, *fileSearch, *clock,    *log,        *scriptLog,
            *automation, *foreground, *shell,      *launcher, *downloader, *importer};
  }
};

// `verbose` copies the log to standard error. Never throws.
[[nodiscard]] PlatformServices MakePlatformServices(bool verbose);

// Where an instance is a process of its own: whether it starts with the object, beside what its owner does
// first, or with the first call that needs it.
enum class InstanceStart { AtOnce, WhenNeeded };

// An engine instance. `audible` prepares the sound device. `condition` is told what is wrong with
// the instance, a German sentence, and "" when nothing is any more; on the pump's thread. The services and
// the pump must outlive the instance.
[[nodiscard]] std::unique_ptr<DirectSS> MakeSpeechInstance(const PlatformServices& services, EventPump& pump,
                                                           bool audible,
                                                           std::function<void(const std::string&)> condition,
                                                           InstanceStart start = InstanceStart::AtOnce);

// Has an instance that starts when it is needed start now; does not wait for it.
void StartInstance(DirectSS& instance);

// Has an instance of this system look for voices anew, at once or when its text has ended; the next question
// for its voices waits for the answer.
void RenewVoices(DirectSS& instance);

// The arguments of the process, its own name left out, as the one string that start-up reads.
[[nodiscard]] std::string CommandLineText(std::span<char* const> arguments);

}  // namespace lorelin
