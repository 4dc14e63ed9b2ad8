#include "tests/support/FakeRegistry.h"

#include "platform/common/caseFold.h"

namespace lorelin {

FakeRegistry::Key* FakeRegistry::Find(RegistryHive hive, std::string_view path, bool create) {
  Key* key = &hives_[hive];
  while (!path.empty()) {
    const std::string_view part = path.substr(0, path.find('\\'));
    path.remove_prefix(std::min(part.size() + 1, path.size()));
    if (part.empty()) continue;
    const auto found = key->subkeys.find(FoldCase(part));
    if (found == key->subkeys.end() && !create) return nullptr;
    Key& next = key->subkeys[FoldCase(part)];
    if (next.name.empty()) next.name = part;
    key = &next;
  }
  return key;
}

bool FakeRegistry::CreateKey(RegistryHive hive, std::string_view path) {
  return Find(hive, path, true) != nullptr;
}
bool FakeRegistry::KeyExists(RegistryHive hive, std::string_view path) {
  return Find(hive, path) != nullptr;
}

bool FakeRegistry::DeleteKey(RegistryHive hive, std::string_view path) {
  while (path.ends_with('\\')) path.remove_suffix(1);
  const Key* const key = Find(hive, path);
  if (key == nullptr || path.empty() || !key->subkeys.empty()) return false;
  const auto end = path.rfind('\\');
  const bool top = end == std::string_view::npos;
  Key* const parent = Find(hive, top ? "" : path.substr(0, end));
  return parent->subkeys.erase(FoldCase(top ? path : path.substr(end + 1))) > 0;
}

std::optional<std::vector<std::string>> FakeRegistry::SubkeyNames(RegistryHive hive, std::string_view path) {
  const Key* const key = Find(hive, path);
  if (key == nullptr) return std::nullopt;
  std::vector<std::string> names;
  for (const auto& [folded, subkey] : key->subkeys) names.push_back(subkey.name);
  return names;
}

std::optional<std::vector<std::string>> FakeRegistry::ValueNames(RegistryHive hive, std::string_view path) {
  const Key* const key = Find(hive, path);
  if (key == nullptr) return std::nullopt;
  std::vector<std::string> names;
  for (const auto& [folded, value] : key->values) names.push_back(value.name);
  return names;
}

std::optional<RegistryValue> FakeRegistry::ReadValue(RegistryHive hive, std::string_view path,
                                                     std::string_view name) {
  const Key* const key = Find(hive, path);
  if (key == nullptr) return std::nullopt;
  const auto found = key->values.find(FoldCase(name));
  if (found == key->values.end()) return std::nullopt;
  return found->second.value;
}

bool FakeRegistry::WriteValue(RegistryHive hive, std::string_view path, std::string_view name,
                              const RegistryValue& value) {
  if (writesUntilFull == 0) return false;
  if (writesUntilFull > 0) --writesUntilFull;
  Value& stored =
      Find(hive, path, true)->values.try_emplace(FoldCase(name), Value{std::string(name), {}}).first->second;
  stored.value = value;
  return true;
}

bool FakeRegistry::Together(const std::function<bool()>& changes) {
  const auto before = hives_;
  if (changes()) return true;
  hives_ = before;
  return false;
}

bool FakeRegistry::DeleteValue(RegistryHive hive, std::string_view path, std::string_view name) {
  Key* const key = Find(hive, path);
  return key != nullptr && key->values.erase(FoldCase(name)) > 0;
}

}  // namespace lorelin
