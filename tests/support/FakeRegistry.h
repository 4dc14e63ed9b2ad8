#pragma once

#include <functional>
#include <map>
#include <string>

#include "ports/Registry.h"

namespace lorelin {

// A registry in memory; names are compared as the real store compares them.
class FakeRegistry final : public Registry {
 public:
  bool CreateKey(RegistryHive hive, std::string_view path) override;
  bool KeyExists(RegistryHive hive, std::string_view path) override;
  bool DeleteKey(RegistryHive hive, std::string_view path) override;
  std::optional<std::vector<std::string>> SubkeyNames(RegistryHive hive, std::string_view path) override;
  std::optional<std::vector<std::string>> ValueNames(RegistryHive hive, std::string_view path) override;
  std::optional<RegistryValue> ReadValue(RegistryHive hive, std::string_view path,
                                         std::string_view name) override;
  bool WriteValue(RegistryHive hive, std::string_view path, std::string_view name,
                  const RegistryValue& value) override;
  bool DeleteValue(RegistryHive hive, std::string_view path, std::string_view name) override;
  [[nodiscard]] RegistryState State() const override { return state; }
  [[nodiscard]] bool IsLasting() const override { return lasting; }
  bool Together(const std::function<bool()>& changes) override;
  void ConfirmLoss() override { ++confirmed; }

  RegistryState state = RegistryState::Whole;
  bool lasting = true;
  int writesUntilFull = -1;  // how many values can still be written; negative: as many as one likes
  int confirmed = 0;

 private:
  struct Value {
    std::string name;
    RegistryValue value;
  };
  struct Key {
    std::string name;
    std::map<std::string, Key> subkeys;
    std::map<std::string, Value> values;
  };

  [[nodiscard]] Key* Find(RegistryHive hive, std::string_view path, bool create = false);

  std::map<RegistryHive, Key> hives_;
};

}  // namespace lorelin
