#include "platform/windows/AdvapiRegistry.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "platform/windows/systemErrors.h"
#include "platform/windows/wideText.h"

namespace lorelin {
namespace {

constexpr const char* kUsersClasses = "Software\\Classes\\";
constexpr DWORD kLongestKeyName = 256;      // characters, the end included (Registry Element Size Limits)
constexpr DWORD kLongestValueName = 16384;  // characters

HKEY RootOf(RegistryHive hive) {
  switch (hive) {
    case RegistryHive::ClassesRoot:
      return HKEY_CLASSES_ROOT;
    case RegistryHive::CurrentUser:
      return HKEY_CURRENT_USER;
    case RegistryHive::LocalMachine:
      return HKEY_LOCAL_MACHINE;
    case RegistryHive::Users:
      return HKEY_USERS;
    case RegistryHive::PerformanceData:
      return HKEY_PERFORMANCE_DATA;
    case RegistryHive::CurrentConfig:
      return HKEY_CURRENT_CONFIG;
    case RegistryHive::DynData:
      return HKEY_DYN_DATA;
  }
  return nullptr;
}

// Superfluous separators are none.
std::wstring KeyPath(std::string_view path) {
  std::string clean;
  for (const char character : path) {
    if (character != '\\' || (!clean.empty() && clean.back() != '\\')) clean.push_back(character);
  }
  if (clean.ends_with('\\')) clean.pop_back();
  return Wide(clean);
}

class Key {
 public:
  Key() = default;
  explicit Key(HKEY key) : key_(key) {}
  ~Key() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  Key(Key&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
  Key& operator=(Key&&) = delete;
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;

  [[nodiscard]] HKEY Handle() const { return key_; }
  explicit operator bool() const { return key_ != nullptr; }

 private:
  HKEY key_ = nullptr;
};

Key Opened(RegistryHive hive, std::string_view path, REGSAM access, LSTATUS* outcome = nullptr) {
  HKEY key = nullptr;
  const LSTATUS error = RegOpenKeyExW(RootOf(hive), KeyPath(path).c_str(), 0, access, &key);
  if (outcome != nullptr) *outcome = error;
  return Key(error == ERROR_SUCCESS ? key : nullptr);
}

bool IsMissing(LSTATUS error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

std::pair<Key, LSTATUS> Created(RegistryHive hive, std::string_view path) {
  HKEY key = nullptr;
  const LSTATUS error =
      RegCreateKeyExW(RootOf(hive), KeyPath(path).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                      KEY_READ | KEY_WRITE, nullptr, &key, nullptr);
  return {Key(error == ERROR_SUCCESS ? key : nullptr), error};
}

bool IsText(RegistryType type) {
  return type == RegistryType::String || type == RegistryType::ExpandString;
}

std::string TextOf(const std::string& bytes) {
  std::wstring wide(bytes.size() / sizeof(wchar_t), L'\0');
  std::copy_n(bytes.data(), wide.size() * sizeof(wchar_t), reinterpret_cast<char*>(wide.data()));
  if (!wide.empty() && wide.back() == L'\0') wide.pop_back();
  return Utf8(wide);
}

std::string BytesOf(std::string_view text) {
  const std::wstring wide = Wide(text);
  return {reinterpret_cast<const char*>(wide.c_str()), (wide.size() + 1) * sizeof(wchar_t)};
}

}  // namespace

bool AdvapiRegistry::Fail(std::string_view what, std::string_view path, long error) {
  log_.Write("Registrierung: " + std::string(what) + " " + std::string(path) + ": " +
             SystemErrorText(static_cast<unsigned long>(error)));
  return false;
}

bool AdvapiRegistry::CreateKey(RegistryHive hive, std::string_view path) {
  const auto [key, error] = Created(hive, path);
  if (key) return true;
  if (hive == RegistryHive::ClassesRoot && error == ERROR_ACCESS_DENIED) {
    return CreateKey(RegistryHive::CurrentUser, kUsersClasses + std::string(path));
  }
  return Fail("CreateKey", path, error);
}

bool AdvapiRegistry::KeyExists(RegistryHive hive, std::string_view path) {
  return static_cast<bool>(Opened(hive, path, KEY_READ));
}

bool AdvapiRegistry::DeleteKey(RegistryHive hive, std::string_view path) {
  const std::wstring clean = KeyPath(path);
  if (clean.empty()) return false;
  const auto subkeys = SubkeyNames(hive, path);
  if (!subkeys || !subkeys->empty()) return false;
  const LSTATUS error = RegDeleteKeyW(RootOf(hive), clean.c_str());
  return error == ERROR_SUCCESS || Fail("DeleteKey", path, error);
}

std::optional<std::vector<std::string>> AdvapiRegistry::SubkeyNames(RegistryHive hive,
                                                                    std::string_view path) {
  const Key key = Opened(hive, path, KEY_READ);
  if (!key) return std::nullopt;
  std::vector<std::string> names;
  std::wstring name(kLongestKeyName, L'\0');
  for (DWORD index = 0;; ++index) {
    auto length = static_cast<DWORD>(name.size());
    if (RegEnumKeyExW(key.Handle(), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      return names;
    }
    names.push_back(Utf8({name.data(), length}));
  }
}

std::optional<std::vector<std::string>> AdvapiRegistry::ValueNames(RegistryHive hive, std::string_view path) {
  const Key key = Opened(hive, path, KEY_READ);
  if (!key) return std::nullopt;
  std::vector<std::string> names;
  std::wstring name(kLongestValueName, L'\0');
  for (DWORD index = 0;; ++index) {
    auto length = static_cast<DWORD>(name.size());
    if (RegEnumValueW(key.Handle(), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      return names;
    }
    names.push_back(Utf8({name.data(), length}));
  }
}

std::optional<RegistryValue> AdvapiRegistry::ReadValue(RegistryHive hive, std::string_view path,
                                                       std::string_view name) {
  LSTATUS error = ERROR_SUCCESS;
  const Key key = Opened(hive, path, KEY_READ, &error);
  readFailed_ = !key && !IsMissing(error);
  if (!key) return std::nullopt;
  const std::wstring wideName = Wide(name);
  DWORD type = 0;
  DWORD size = 0;
  error = RegQueryValueExW(key.Handle(), wideName.c_str(), nullptr, &type, nullptr, &size);
  std::string bytes;
  // Somebody else may make the value longer meanwhile.
  while (error == ERROR_SUCCESS || error == ERROR_MORE_DATA) {
    bytes.resize(size);
    error = RegQueryValueExW(key.Handle(), wideName.c_str(), nullptr, &type,
                             reinterpret_cast<BYTE*>(bytes.data()), &size);
    if (error == ERROR_SUCCESS) break;
  }
  readFailed_ = error != ERROR_SUCCESS && !IsMissing(error);
  if (error != ERROR_SUCCESS) return std::nullopt;
  bytes.resize(size);
  const auto kind = static_cast<RegistryType>(type);
  return RegistryValue{kind, IsText(kind) ? TextOf(bytes) : bytes};
}

bool AdvapiRegistry::WriteValue(RegistryHive hive, std::string_view path, std::string_view name,
                                const RegistryValue& value) {
  const bool classes = hive == RegistryHive::ClassesRoot;
  const bool changed = classes && ReadValue(hive, path, name) != value;
  if (classes && !changed) return true;
  const auto [key, createError] = Created(hive, path);
  LSTATUS error = createError;
  if (key) {
    const std::string bytes = IsText(value.type) ? BytesOf(value.data) : value.data;
    error = RegSetValueExW(key.Handle(), Wide(name).c_str(), 0, static_cast<DWORD>(value.type),
                           reinterpret_cast<const BYTE*>(bytes.data()), static_cast<DWORD>(bytes.size()));
  }
  if (classes && error == ERROR_ACCESS_DENIED) {
    error = WriteValue(RegistryHive::CurrentUser, kUsersClasses + std::string(path), name, value)
                ? ERROR_SUCCESS
                : ERROR_ACCESS_DENIED;
  }
  classesChanged_ = classesChanged_ || (changed && error == ERROR_SUCCESS);
  return error == ERROR_SUCCESS || Fail("WriteValue", path, error);
}

bool AdvapiRegistry::DeleteValue(RegistryHive hive, std::string_view path, std::string_view name) {
  const Key key = Opened(hive, path, KEY_SET_VALUE);
  return key && RegDeleteValueW(key.Handle(), Wide(name).c_str()) == ERROR_SUCCESS;
}

}  // namespace lorelin
