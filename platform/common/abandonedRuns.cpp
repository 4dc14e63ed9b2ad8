#include "platform/common/abandonedRuns.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <system_error>
#include <vector>

#include "base/paths.h"
#include "base/unfinishedName.h"
#include "platform/common/console.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kRunPrefix = "run-";

// The process that a name belongs to; nothing when it is no such name.
std::optional<unsigned long> ProcessOf(const std::string& name, std::string_view prefix) {
  if (!name.starts_with(prefix)) return std::nullopt;
  unsigned long process = 0;
  const char* const end = name.data() + name.size();
  const auto result = std::from_chars(name.data() + prefix.size(), end, process);
  if (result.ec != std::errc() || result.ptr != end || process == 0) return std::nullopt;
  return process;
}

// What processes have in the cache folder.
struct Found {
  std::vector<fs::path> abandoned;  // folders
  std::vector<fs::path> ofDead;     // lists
  std::vector<fs::path> ofLiving;
};

Found LookInto(const std::string& cacheFolder) {
  Found found;
  std::error_code error;
  for (fs::directory_iterator entry(NativePath(cacheFolder), error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = PathText(entry->path().filename());
    if (const auto process = ProcessOf(name, kRunPrefix); process && !ProcessIsThere(*process))
      found.abandoned.push_back(entry->path());
    if (const auto process = ProcessOf(name, kUnfinishedListPrefix); process)
      (ProcessIsThere(*process) ? found.ofLiving : found.ofDead).push_back(entry->path());
  }
  return found;
}

void ReadList(const fs::path& list, std::set<std::string>& paths) {
  std::ifstream file(list, std::ios::binary);
  for (std::string path; std::getline(file, path, '\0');) paths.insert(path);
}

// Only what has the name of an unfinished file, whatever the list says.
void RemoveUnfinished(const fs::path& file) {
  std::error_code error;
  if (PathText(file.filename()).starts_with(kUnfinishedPrefix) &&
      fs::is_regular_file(fs::symlink_status(file, error)))
    fs::remove(file, error);
}

void RemoveFilesOf(const std::vector<fs::path>& dead, const std::vector<fs::path>& living) {
  if (dead.empty()) return;
  std::set<std::string> used;
  for (const fs::path& list : living) ReadList(list, used);
  for (const fs::path& list : dead) {
    std::set<std::string> paths;
    ReadList(list, paths);
    for (const std::string& path : paths) {
      if (used.contains(path)) continue;
      RemoveUnfinished(NativePath(path));
      RemoveUnfinished(UnfinishedName(NativePath(path)));  // which the engine writes, when it was killed too
    }
    std::error_code error;
    fs::remove(list, error);
  }
}

}  // namespace

void RemoveAbandonedRuns(const std::string& cacheFolder) {
  const Found found = LookInto(cacheFolder);
  std::error_code error;
  for (const fs::path& folder : found.abandoned) fs::remove_all(folder, error);
  RemoveFilesOf(found.ofDead, found.ofLiving);
}

}  // namespace lorelin
