#include "settings/SettingsStore.h"

namespace lorelin {
namespace {

std::string SectionPath(std::string_view section) {
  return "Software\\VB and VBA Program Settings\\Lorelin\\" + std::string(section);
}

}  // namespace

std::string SettingsStore::GetSetting(std::string_view section, std::string_view key,
                                      std::string_view defaultText) const {
  const auto value = registry_.ReadValue(RegistryHive::CurrentUser, SectionPath(section), key);
  if (!value || value->type != RegistryType::String) return std::string(defaultText);
  return value->data;
}

void SettingsStore::SaveSetting(std::string_view section, std::string_view key, std::string_view text) {
  registry_.WriteValue(RegistryHive::CurrentUser, SectionPath(section), key,
                       RegistryValue{RegistryType::String, std::string(text)});
}

std::string SettingsStore::Get(const SettingKey& key) const {
  if (const auto found = overrides_.find(&key); found != overrides_.end()) return found->second;
  return GetSetting(key.section, key.name, key.defaultText);
}

void SettingsStore::Save(const SettingKey& key, std::string_view text) {
  overrides_.erase(&key);
  SaveSetting(key.section, key.name, text);
}

void SettingsStore::Override(const SettingKey& key, std::string_view text) {
  overrides_.insert_or_assign(&key, std::string(text));
}

}  // namespace lorelin
