#include "engine/engineRights.h"

#include <espeak-ng/speak_lib.h>

#include <cstdlib>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "confinement/calls.h"
#include "confinement/files.h"
#include "engine/ChildProgram.h"
#include "engine/OnnxRuntime.h"
#include "engine/naturalVoices.h"
#include "engine/voiceFiles.h"

namespace lorelin::engine {
namespace {

namespace fs = std::filesystem;
using Paths = std::vector<fs::path>;

constexpr std::uintmax_t kLargestSettings = 1U << 20U;

std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

// An empty base gives an empty path.
fs::path Below(const fs::path& base, const fs::path& name) {
  return base.empty() ? fs::path() : base / name;
}

fs::path SettingsFolder() {
  const std::string given = Environment("XDG_CONFIG_HOME");
  return given.empty() ? Below(Environment("HOME"), ".config") : fs::path(given);
}

Paths SoundSettings() {
  const fs::path home = Environment("HOME");
  const fs::path settings = SettingsFolder();
  return {Below(settings, "pulse"),          Below(settings, "pipewire"), Below(settings, "alsa"),
          Below(home, ".asoundrc"),          Below(home, ".pulse"),       Below(home, ".pulse-cookie"),
          Environment("PULSE_CLIENTCONFIG"), Environment("PULSE_COOKIE"), Environment("ALSA_CONFIG_PATH"),
          Environment("XDG_RUNTIME_DIR")};
}

// SDL's driver that plays into a file is for those who ask for it.
Paths SoundDevices() {
  Paths devices{"/dev/snd",  "/dev/dsp", "/dev/audio",
                "/dev/null", "/dev/shm", Below(Environment("XDG_RUNTIME_DIR"), "pulse")};
  const fs::path file = Environment("SDL_DISKAUDIOFILE");
  if (Environment("SDL_AUDIODRIVER") == "disk") devices.push_back(file.empty() ? "." : file.parent_path());
  return devices;
}

// A voice or its runtime may be a link to where it really lies.
Paths VoiceData() {
  const char* phonemes = nullptr;
  (void)espeak_Info(&phonemes);
  Paths data{phonemes != nullptr ? phonemes : ""};
  std::error_code error;
  for (const fs::path& folder : VoiceFolders()) {
    data.push_back(folder);
    for (const char* const ending : {".onnx", ".json"}) {
      for (const fs::path& file : VoiceFilesBelow(folder, ending)) {
        if (fs::is_symlink(file, error)) data.push_back(file);
      }
    }
  }
  for (const fs::path& folder : RuntimeFolders()) data.push_back(folder);
  const fs::path runtime = fs::canonical(OnnxRuntime::Find(RuntimeFolders()), error);
  if (!error) data.push_back(runtime.parent_path());
  return data;
}

Paths LibraryFolders() {
  Paths folders;
  const std::string all = Environment("LD_LIBRARY_PATH");
  std::string_view rest = all;
  while (!rest.empty()) {
    const auto end = std::min(rest.find(':'), rest.size());
    folders.emplace_back(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  std::error_code error;
  folders.push_back(fs::read_symlink("/proc/self/exe", error).parent_path());
  return folders;
}

void Append(Paths& paths, Paths more) {
  for (fs::path& path : more) paths.push_back(std::move(path));
}

// eSpeak NG has a program of its own speak the voices of MBROLA.
bool NeedsProgram() {
  std::error_code error;
  return fs::exists("/usr/share/mbrola", error) && !FindProgram("mbrola", "/").empty();
}

bool ServerIsDistant() {
  if (Environment("PULSE_SERVER").find("tcp") != std::string::npos) return true;
  for (const fs::path& file :
       {fs::path(Environment("PULSE_CLIENTCONFIG")), Below(SettingsFolder(), "pulse/client.conf"),
        fs::path("/etc/pulse/client.conf")}) {
    if (file.empty()) continue;
    const auto settings = ReadBounded(file, kLargestSettings);
    if (settings && NamesDistantServer(*settings)) return true;
  }
  return false;
}

}  // namespace

bool NamesDistantServer(std::string_view settings) {
  while (!settings.empty()) {
    const auto end = std::min(settings.find('\n'), settings.size());
    std::string_view line = settings.substr(0, end);
    settings.remove_prefix(std::min(end + 1, settings.size()));
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (line.starts_with("default-server") && line.find("tcp") != std::string_view::npos) return true;
  }
  return false;
}

ConfinedTo KeepEngineRights(const fs::path& folder) {
  const bool programs = NeedsProgram();
  const bool distant = ServerIsDistant();
  KeptFiles kept;
  Append(programs ? kept.runnable : kept.readable, SystemFolders());
  Append(kept.readable, LibraryFolders());
  Append(kept.readable, VoiceData());
  Append(kept.readable, SoundSettings());
  kept.writable = SoundDevices();
  if (!folder.empty()) kept.writable.push_back(folder);
  LimitResource(RLIMIT_CORE, 0, 0);
  const bool files = KeepFiles(kept);
  const bool calls = KeepCalls({.localSockets = true, .internetSockets = distant, .programs = programs});
  return {.filesKept = files, .callsKept = calls};
}

}  // namespace lorelin::engine
