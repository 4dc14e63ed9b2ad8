#include "settings/SettingsStore.h"

#include <algorithm>

#include "base/text.h"

namespace lorelin {
namespace {

std::string SectionPath(std::string_view section) {
  return "Software\\VB and VBA Program Settings\\Lorelin\\" + std::string(section);
}

bool IsPermission(std::string_view section, std::string_view key) {
  const std::string wantedSection = LowerAscii(section);
  const std::string wantedKey = LowerAscii(key);
  return std::any_of(kPermissions.begin(), kPermissions.end(), [&](const SettingKey* permission) {
    return LowerAscii(permission->section) == wantedSection && LowerAscii(permission->name) == wantedKey;
  });
}

}  // namespace

std::string SettingsStore::GetSetting(std::string_view section, std::string_view key,
                                      std::string_view defaultText) const {
  const auto value = registry_.ReadValue(RegistryHive::CurrentUser, SectionPath(section), key);
  const RegistryState state = registry_.State();
  const bool known = value ? state != RegistryState::Unreadable : state == RegistryState::Whole;
  if (!known && IsPermission(section, key)) return "0";
  if (!value || value->type != RegistryType::String) return std::string(defaultText);
  return value->data;
}

std::string SettingsStore::WhyForbidden() const {
  switch (registry_.State()) {
    case RegistryState::Whole:
      break;
    case RegistryState::Replaced:
      if (registry_.ReadValue(RegistryHive::CurrentUser, SectionPath(setting::VTSAllow.section),
                              setting::VTSAllow.name)) {
        break;
      }
      return "Die Einstellungen waren verloren gegangen. Bitte lassen Sie Taskscripts in den Einstellungen "
             "wieder zu.";
    case RegistryState::Unreadable:
      return "Die Einstellungen können nicht gelesen werden.";
  }
  return {};
}

bool SettingsStore::SaveSetting(std::string_view section, std::string_view key, std::string_view text) {
  return registry_.WriteValue(RegistryHive::CurrentUser, SectionPath(section), key,
                              RegistryValue{RegistryType::String, std::string(text)});
}

std::string SettingsStore::Get(const SettingKey& key) const {
  if (const auto found = overrides_.find(&key); found != overrides_.end()) return found->second;
  return GetSetting(key.section, key.name, key.defaultText);
}

bool SettingsStore::Save(const SettingKey& key, std::string_view text) {
  overrides_.erase(&key);
  return SaveSetting(key.section, key.name, text);
}

void SettingsStore::Override(const SettingKey& key, std::string_view text) {
  overrides_.insert_or_assign(&key, std::string(text));
}

}  // namespace lorelin
