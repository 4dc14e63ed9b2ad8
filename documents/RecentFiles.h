#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "settings/SettingsStore.h"

namespace lorelin {

// The documents that were opened or saved last, the latest first, kept in the settings. User-interface thread
// only.
class RecentFiles {
 public:
  static constexpr std::size_t kMost = 9;

  // Does not own the settings. `changed` is called whenever the list is another one.
  explicit RecentFiles(
      SettingsStore& settings, std::function<void()> changed = [] {})
      : settings_(settings), changed_(std::move(changed)) {}

  [[nodiscard]] std::vector<std::string> Paths() const;
  void Add(const std::string& path);
  void Remove(const std::string& path);
  void Clear() { Store({}); }

 private:
  void Store(const std::vector<std::string>& paths);

  SettingsStore& settings_;
  std::function<void()> changed_;
};

}  // namespace lorelin
