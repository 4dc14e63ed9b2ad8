#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "ports/Registry.h"
#include "settings/settingsTable.h"

namespace lorelin {

// The user's preferences: string values by section and key, names compared without case, under
// HKEY_CURRENT_USER\Software\VB and VBA Program Settings\Lorelin. No call fails: a value that is missing or
// not a string reads as the default. The permissions of scripts read as "0" while it cannot be known what
// they are.
class SettingsStore {
 public:
  // Does not own the registry, which must outlive the store.
  explicit SettingsStore(Registry& registry) : registry_(registry) {}

  [[nodiscard]] std::string GetSetting(std::string_view section, std::string_view key,
                                       std::string_view defaultText) const;
  // Whether it was written; hardly a caller wants to know.
  bool SaveSetting(std::string_view section, std::string_view key, std::string_view text);

  [[nodiscard]] std::string Get(const SettingKey& key) const;
  bool Save(const SettingKey& key, std::string_view text);
  // The value reads as `text` for the rest of this run, without being stored, until it is saved.
  void Override(const SettingKey& key, std::string_view text);
  // What is stored counts again.
  void EndOverride(const SettingKey& key) { overrides_.erase(&key); }
  // See Registry.
  bool Together(const std::function<bool()>& changes) { return registry_.Together(changes); }
  [[nodiscard]] bool IsLasting() const { return registry_.IsLasting(); }
  // Why a permission that nobody took away is missing, in German; "" when that is not so.
  [[nodiscard]] std::string WhyForbidden() const;

 private:
  Registry& registry_;
  std::map<const SettingKey*, std::string> overrides_;
};

}  // namespace lorelin
