#pragma once

#include <filesystem>
#include <string_view>

namespace lorelin::engine {

// What the system refuses of what the process does not need.
struct ConfinedTo {
  bool filesKept = false;
  bool callsKept = false;
};

// From here on the process opens no connection but the one to the sound server, starts no program, looks
// into no other process, reads what belongs to the system, its voices and the settings of sound, and writes
// files into the folder only ("" for none) and to the sound device. To be called before there are threads,
// after the voices were found. Answers what the system can refuse.
ConfinedTo KeepEngineRights(const std::filesystem::path& folder);

// Whether the settings of a sound server's client, as it reads them, name one on another machine.
[[nodiscard]] bool NamesDistantServer(std::string_view settings);

}  // namespace lorelin::engine
