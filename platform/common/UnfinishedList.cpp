#include "platform/common/UnfinishedList.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "base/paths.h"
#include "platform/common/abandonedRuns.h"
#include "platform/common/console.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

fs::path OwnList(const std::string& cacheFolder) {
  return NativePath(cacheFolder) / (std::string(kUnfinishedListPrefix) + std::to_string(ProcessNumber()));
}

}  // namespace

UnfinishedList::~UnfinishedList() {
  paths_.clear();
  Write();
}

void UnfinishedList::Add(const std::string& path) {
  const std::lock_guard guard(mutex_);
  RemoveAbandonedRuns(cacheFolder_);
  // Whoever reads the list stands in another folder.
  if (paths_.insert(AbsolutePath(path)).second) Write();
}

void UnfinishedList::Remove(const std::string& path) {
  const std::lock_guard guard(mutex_);
  if (paths_.erase(AbsolutePath(path)) > 0) Write();
}

// Names may hold any other character.
void UnfinishedList::Write() const {
  const fs::path list = OwnList(cacheFolder_);
  std::error_code error;
  if (paths_.empty()) {
    fs::remove(list, error);
    return;
  }
  if (MakePrivateFolder(NativePath(cacheFolder_))) return;
  std::ofstream file(list, std::ios::binary | std::ios::trunc);
  for (const std::string& path : paths_) file << path << '\0';
}

}  // namespace lorelin
