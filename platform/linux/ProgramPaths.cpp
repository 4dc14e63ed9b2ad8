#include "platform/ProgramPaths.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "app/paths.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPages = "hypertext";

fs::path Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? fs::path(value) : fs::path();
}

// An XDG base directory (XDG Base Directory Specification 0.8): a relative one counts as unset.
fs::path BaseFolder(const char* name, const char* belowHome) {
  const fs::path folder = Environment(name);
  if (folder.is_absolute()) return folder / "lorelin";
  return Environment("HOME") / belowHome / "lorelin";
}

fs::path Executable() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error);
}

// What a user has changed or added is kept.
void Seed(const fs::path& folder, const fs::path& shared) {
  std::error_code error;
  fs::create_directories(folder, error);
  fs::copy(shared / kPages, folder / kPages, fs::copy_options::recursive | fs::copy_options::skip_existing,
           error);
}

// The pages that came with the program: beside it, or in the shared data of an installation.
fs::path SharedData(const fs::path& programFolder) {
  std::error_code error;
  if (fs::is_directory(programFolder / kPages, error)) return programFolder;
  return programFolder.parent_path() / "share" / "lorelin";
}

bool IsOwnFolder(const fs::path& folder) {
  std::error_code error;
  return fs::is_directory(folder / kPages, error) && access(folder.c_str(), W_OK) == 0;
}

}  // namespace

ProgramPaths FindProgramPaths() {
  const fs::path executable = Executable();
  const fs::path beside = executable.parent_path();
  const fs::path home = Environment("LORELIN_HOME");
  const bool moved = !home.empty();
  std::error_code error;
  fs::path folder = moved ? fs::absolute(home, error) : beside;
  if (moved || !IsOwnFolder(beside)) {
    if (!moved) folder = BaseFolder("XDG_DATA_HOME", ".local/share");
    Seed(folder, SharedData(beside));
  }
  const fs::path settings = moved ? folder : BaseFolder("XDG_CONFIG_HOME", ".config");
  const fs::path state = moved ? folder : BaseFolder("XDG_STATE_HOME", ".local/state");
  return {.programFolder = PathText(folder),
          .programFile = PathText(executable),
          .engineFile = PathText(beside / "lorelin-engine"),
          .registryFile = PathText(settings / "registry.sqlite"),
          .logFile = PathText(state / "lorelin.log"),
          .cacheFolder = PathText(moved ? folder / "cache" : BaseFolder("XDG_CACHE_HOME", ".cache")),
          .lockFile = PathText(settings / "lorelin.lock")};
}

}  // namespace lorelin
