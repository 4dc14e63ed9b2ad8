#include "ports/ProgramPaths.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <system_error>

#include "base/paths.h"
#include "platform/common/programFolder.h"
#include "platform/linux/SystemFacts.h"
#include "platform/linux/ownFolder.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

fs::path Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? fs::path(value) : fs::path();
}

fs::path UserHome() {
  if (const fs::path home = Environment("HOME"); home.is_absolute()) return home;
  const passwd* const user = getpwuid(getuid());
  return user != nullptr ? fs::path(user->pw_dir) : fs::path("/");
}

fs::path Executable() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error);
}

fs::path TemporaryFolder() {
  std::error_code error;
  const fs::path folder = fs::temp_directory_path(error);
  return error ? fs::path("/tmp") : folder;
}

// Absolute, without "." and "..", without a separator at the end.
fs::path Clean(const fs::path& folder) {
  std::error_code error;
  const fs::path clean = fs::absolute(folder, error).lexically_normal();
  return clean.has_filename() ? clean : clean.parent_path();
}

// An XDG base directory (XDG Base Directory Specification 0.8): a relative one counts as unset.
fs::path BaseFolder(const SystemFacts& facts, const char* name, const char* belowHome) {
  const fs::path folder = facts.environment(name);
  return Clean((folder.is_absolute() ? folder : facts.home / belowHome) / "lorelin");
}

bool IsWritable(const fs::path& folder) {
  return access(folder.c_str(), W_OK | X_OK) == 0;
}

bool MakeWritable(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder.parent_path(), error);
  mkdir(folder.c_str(), 0700);
  return IsWritable(folder);
}

// In a folder that everybody writes to, another user may have been first.
bool IsPrivate(const fs::path& folder) {
  struct stat status {};
  return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
         (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

fs::path WritableFolder(const fs::path& wanted, const SystemFacts& facts) {
  if (MakeWritable(wanted)) {
    CloseOwnFolder(wanted);
    return wanted;
  }
  const fs::path runtime = facts.environment("XDG_RUNTIME_DIR");
  const fs::path forUser = "lorelin-" + std::to_string(geteuid());
  for (const fs::path& base : {runtime, facts.temporaryFolder}) {
    const fs::path folder = base / forUser;
    if (folder.is_absolute() && MakeWritable(folder) && IsPrivate(folder)) return folder;
  }
  return wanted;
}

// The pages that came with the program: beside it, or in the shared data of an installation.
fs::path SharedData(const fs::path& programFolder) {
  std::error_code error;
  if (fs::is_directory(programFolder / kPagesFolder, error)) return programFolder;
  return programFolder.parent_path() / "share" / "lorelin";
}

fs::path SeededFolder(const fs::path& wanted, const fs::path& beside, const SystemFacts& facts) {
  const fs::path folder = WritableFolder(wanted, facts);
  SeedProgramFolder(folder, SharedData(beside));
  return folder;
}

}  // namespace

ProgramPaths ChooseProgramPaths(const SystemFacts& facts) {
  const fs::path beside = facts.executable.parent_path();
  const fs::path named = facts.environment("LORELIN_HOME");
  const bool moved = !named.empty();
  const fs::path home = moved ? Clean(named) : fs::path();
  const auto base = [&](const char* name, const char* belowHome) {
    return moved ? home : BaseFolder(facts, name, belowHome);
  };
  const fs::path data = base("XDG_DATA_HOME", ".local/share");
  const fs::path settings = base("XDG_CONFIG_HOME", ".config");
  std::error_code error;
  const bool own = !moved && fs::is_directory(beside / kPagesFolder, error) && IsWritable(beside);
  const fs::path folder = own ? beside : SeededFolder(data, beside, facts);
  return {.programFolder = PathText(folder),
          .programFile = PathText(facts.executable),
          .engineFile = PathText(beside / "lorelin-engine"),
          .settingsFolder = PathText(settings),
          .registryFile = PathText(settings / "registry.sqlite"),
          .logFile = PathText(base("XDG_STATE_HOME", ".local/state") / "lorelin.log"),
          .scriptLogFile = PathText(folder / "taskscripts.log"),
          .cacheFolder = PathText(moved ? home / "cache" : BaseFolder(facts, "XDG_CACHE_HOME", ".cache")),
          .lockFile = PathText(settings / "lorelin.lock"),
          .homeFolder = PathText(facts.home),
          .desktopFolder =
              moved ? "" : PathText(BaseFolder(facts, "XDG_DATA_HOME", ".local/share").parent_path())};
}

ProgramPaths FindProgramPaths() {
  return ChooseProgramPaths({.executable = Executable(),
                             .home = UserHome(),
                             .temporaryFolder = TemporaryFolder(),
                             .environment = &Environment});
}

}  // namespace lorelin
