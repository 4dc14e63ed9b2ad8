#include "confinement/files.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <system_error>

namespace lorelin {
namespace {

namespace fs = std::filesystem;

// Younger than the headers of some systems.
constexpr std::uint64_t kMoveElsewhere = 1ULL << 13U;  // version 2
constexpr std::uint64_t kTruncate = 1ULL << 14U;       // version 3
constexpr std::uint64_t kSignalOthers = 1ULL << 1U;    // version 6, a scope
constexpr int kVersionOfMoves = 2;
constexpr int kVersionOfTruncation = 3;
constexpr int kVersionOfScopes = 6;

// What landlock_ruleset_attr is in version 6; older systems take the beginning.
struct Ruleset {
  std::uint64_t files = 0;
  std::uint64_t network = 0;
  std::uint64_t scopes = 0;
};

constexpr std::uint64_t kRead = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr std::uint64_t kRun = kRead | LANDLOCK_ACCESS_FS_EXECUTE;
constexpr std::uint64_t kWrite = kRead | LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_FILE |
                                 LANDLOCK_ACCESS_FS_MAKE_REG | kTruncate;
constexpr std::uint64_t kAll = kRun | kWrite | LANDLOCK_ACCESS_FS_REMOVE_DIR | LANDLOCK_ACCESS_FS_MAKE_CHAR |
                               LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_SOCK |
                               LANDLOCK_ACCESS_FS_MAKE_FIFO | LANDLOCK_ACCESS_FS_MAKE_BLOCK |
                               LANDLOCK_ACCESS_FS_MAKE_SYM | kMoveElsewhere;
// Those that a file can have, which is no folder.
constexpr std::uint64_t kOfFile =
    LANDLOCK_ACCESS_FS_EXECUTE | LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_READ_FILE | kTruncate;

std::uint64_t Known(int version) {
  std::uint64_t all = kAll;
  if (version < kVersionOfMoves) all &= ~kMoveElsewhere;
  if (version < kVersionOfTruncation) all &= ~kTruncate;
  return all;
}

class Rules {
 public:
  Rules() {
    const long version = syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (version < 1) return;
    known_ = Known(static_cast<int>(version));
    Ruleset rules{.files = known_};
    std::size_t size = sizeof rules.files;
    if (version >= kVersionOfScopes) {
      rules.scopes = kSignalOthers;
      size = sizeof rules;
    }
    number_ = static_cast<int>(syscall(SYS_landlock_create_ruleset, &rules, size, 0));
  }
  ~Rules() {
    if (number_ >= 0) close(number_);
  }
  Rules(const Rules&) = delete;
  Rules& operator=(const Rules&) = delete;

  void Allow(const std::vector<fs::path>& places, std::uint64_t what) const {
    for (const fs::path& place : places) Allow(place, what);
  }
  [[nodiscard]] bool Apply() const {
    return number_ >= 0 && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           syscall(SYS_landlock_restrict_self, number_, 0) == 0;
  }

 private:
  void Allow(const fs::path& place, std::uint64_t what) const {
    if (number_ < 0 || place.empty()) return;
    landlock_path_beneath_attr rule{};
    rule.parent_fd = open(place.c_str(), O_PATH | O_CLOEXEC);
    if (rule.parent_fd < 0) return;
    struct stat status {};
    if (fstat(rule.parent_fd, &status) == 0) {
      rule.allowed_access = what & known_ & (S_ISDIR(status.st_mode) ? kAll : kOfFile);
      (void)syscall(SYS_landlock_add_rule, number_, LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
    }
    close(rule.parent_fd);
  }

  std::uint64_t known_ = 0;
  int number_ = -1;
};

bool IsPeoples(const fs::path& folder, const fs::path& home) {
  constexpr std::array<std::string_view, 9> kPeoples{"home", "root", "media", "mnt",       "srv",
                                                     "tmp",  "var",  "run",   "lost+found"};
  constexpr std::array<std::string_view, 8> kSystems{"usr",  "bin", "sbin", "etc",
                                                     "proc", "sys", "dev",  "opt"};
  const std::string name = folder.filename().string();
  if (std::find(kPeoples.begin(), kPeoples.end(), name) != kPeoples.end()) return true;
  if (name.starts_with("lib") || std::find(kSystems.begin(), kSystems.end(), name) != kSystems.end())
    return false;
  const fs::path first = home.is_absolute() && home.has_relative_path() ? *home.relative_path().begin() : "";
  return name == first;
}

}  // namespace

bool KeepFiles(const KeptFiles& kept) {
  const Rules rules;
  rules.Allow(kept.readable, kRead);
  rules.Allow(kept.runnable, kRun);
  rules.Allow(kept.writable, kWrite);
  return rules.Apply();
}

std::vector<fs::path> SystemFolders() {
  const char* const home = std::getenv("HOME");
  std::vector<fs::path> folders{"/var/lib", "/var/cache", "/run/current-system"};
  std::error_code error;
  for (fs::directory_iterator entry("/", error); !error && entry != fs::end(entry); entry.increment(error)) {
    if (!IsPeoples(entry->path(), home != nullptr ? home : "")) folders.push_back(entry->path());
  }
  return folders;
}

}  // namespace lorelin
