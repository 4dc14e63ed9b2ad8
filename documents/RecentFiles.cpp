#include "documents/RecentFiles.h"

#include <algorithm>

namespace lorelin {
namespace {

constexpr std::string_view kSection = "Recent";

std::string KeyOf(std::size_t index) {
  return "File" + std::to_string(index + 1);
}

}  // namespace

std::vector<std::string> RecentFiles::Paths() const {
  std::vector<std::string> paths;
  for (std::size_t i = 0; i < kMost; ++i) {
    std::string path = settings_.GetSetting(kSection, KeyOf(i), "");
    if (!path.empty()) paths.push_back(std::move(path));
  }
  return paths;
}

void RecentFiles::Add(const std::string& path) {
  std::vector<std::string> paths = Paths();
  if (path.empty() || (!paths.empty() && paths.front() == path)) return;
  paths.erase(std::remove(paths.begin(), paths.end(), path), paths.end());
  paths.insert(paths.begin(), path);
  Store(paths);
}

void RecentFiles::Remove(const std::string& path) {
  std::vector<std::string> paths = Paths();
  paths.erase(std::remove(paths.begin(), paths.end(), path), paths.end());
  Store(paths);
}

void RecentFiles::Store(const std::vector<std::string>& paths) {
  for (std::size_t i = 0; i < kMost; ++i) {
    const std::string path = i < paths.size() ? paths[i] : "";
    if (settings_.GetSetting(kSection, KeyOf(i), "") != path) settings_.SaveSetting(kSection, KeyOf(i), path);
  }
  changed_();
}

}  // namespace lorelin
