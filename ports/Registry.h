#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lorelin {

enum class RegistryHive {
  ClassesRoot,
  CurrentUser,
  LocalMachine,
  Users,
  PerformanceData,
  CurrentConfig,
  DynData,
};

// The numbers are those of the Windows registry (winnt.h, REG_*).
enum class RegistryType : std::uint32_t { String = 1, ExpandString = 2, Binary = 3, DoubleWord = 4 };

// `data` holds, by type: String and ExpandString the UTF-8 text without a terminator; DoubleWord four bytes,
// least significant first; Binary and every other type the bytes as they are.
struct RegistryValue {
  RegistryType type = RegistryType::String;
  std::string data;

  bool operator==(const RegistryValue&) const = default;
};

[[nodiscard]] RegistryValue MakeDoubleWord(std::uint32_t number);
// The number in a DoubleWord value; absent for any other type or size.
[[nodiscard]] std::optional<std::uint32_t> DoubleWordOf(const RegistryValue& value);

// What a missing value says. Whole: it was never stored. Replaced: the store takes the place of one that was
// lost, and what is missing may have been in that one. Unreadable: nothing, since the last read failed.
enum class RegistryState { Whole, Replaced, Unreadable };

// Port: a registry as Windows has it. Keys are addressed by hive and a path whose parts are separated by
// single backslashes; "" names the hive itself. Key and value names are compared without regard to case,
// letters beyond ASCII included, and keep the spelling of their first writer. The unnamed default value has
// the name "". Names and texts are UTF-8. Enumerations are sorted as the store yields them and do not change
// while nothing is written. No operation throws; a failure is logged by the adapter and shows as false or as
// absence. Thread: the owner's. Several processes may use one store at the same time; every read sees what is
// committed.
class Registry {
 public:
  virtual ~Registry() = default;

  // Creates the key and its missing parents; an existing key is a success.
  virtual bool CreateKey(RegistryHive hive, std::string_view path) = 0;
  [[nodiscard]] virtual bool KeyExists(RegistryHive hive, std::string_view path) = 0;
  // Deletes one key with its values. A key that has subkeys, or does not exist, is refused.
  virtual bool DeleteKey(RegistryHive hive, std::string_view path) = 0;
  // Names of the direct subkeys; absent when the key does not exist.
  [[nodiscard]] virtual std::optional<std::vector<std::string>> SubkeyNames(RegistryHive hive,
                                                                            std::string_view path) = 0;
  // Names of all values of the key; absent when the key does not exist.
  [[nodiscard]] virtual std::optional<std::vector<std::string>> ValueNames(RegistryHive hive,
                                                                           std::string_view path) = 0;
  [[nodiscard]] virtual std::optional<RegistryValue> ReadValue(RegistryHive hive, std::string_view path,
                                                               std::string_view name) = 0;
  // Creates the key when it is missing; an existing value is replaced, its type included. When the call
  // returns true the value survives a kill of the process.
  virtual bool WriteValue(RegistryHive hive, std::string_view path, std::string_view name,
                          const RegistryValue& value) = 0;
  virtual bool DeleteValue(RegistryHive hive, std::string_view path, std::string_view name) = 0;

  [[nodiscard]] virtual RegistryState State() const { return RegistryState::Whole; }
  // Whether what is written outlives the program.
  [[nodiscard]] virtual bool IsLasting() const { return true; }
  // Runs the changes and answers what they answer. Where the system can do that, none of them is stored when
  // the answer is false, or when their storing fails.
  virtual bool Together(const std::function<bool()>& changes) { return changes(); }
  // A person has read that settings were lost; until then every start says so.
  virtual void ConfirmLoss() {}
};

}  // namespace lorelin
