#pragma once

#include "ports/Log.h"
#include "ports/Registry.h"

namespace lorelin {

// The registry of Windows itself (advapi32). Where the user may not write classes for everybody, they are
// written for the user alone (HKEY_CURRENT_USER\Software\Classes), which the class hive shows as its own.
class AdvapiRegistry final : public Registry {
 public:
  // Does not own the log, which must outlive it.
  explicit AdvapiRegistry(Log& log) : log_(log) {}

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

  [[nodiscard]] RegistryState State() const override {
    return readFailed_ ? RegistryState::Unreadable : RegistryState::Whole;
  }

  // Whether a class has been written with another value than it had; the desktop has to be told.
  [[nodiscard]] bool ClassesChanged() const { return classesChanged_; }

 private:
  bool Fail(std::string_view what, std::string_view path, long error);

  Log& log_;
  bool classesChanged_ = false;
  bool readFailed_ = false;
};

}  // namespace lorelin
