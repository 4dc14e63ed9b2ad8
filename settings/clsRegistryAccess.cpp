#include "settings/clsRegistryAccess.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>

#include "base/text.h"

namespace lorelin {
namespace {

struct Root {
  std::string_view longName;
  std::string_view shortName;
  RegistryHive hive;
};

constexpr std::array kRoots{Root{"HKEY_CURRENT_USER", "HKCU", RegistryHive::CurrentUser},
                            Root{"HKEY_LOCAL_MACHINE", "HKLM", RegistryHive::LocalMachine},
                            Root{"HKEY_CLASSES_ROOT", "HKCR", RegistryHive::ClassesRoot},
                            Root{"HKEY_USERS", "HKUS", RegistryHive::Users},
                            Root{"HKEY_PERFORMANCE_DATA", "HKPD", RegistryHive::PerformanceData},
                            Root{"HKEY_DYN_DATA", "HKDD", RegistryHive::DynData},
                            Root{"HKEY_CURRENT_CONFIG", "HKCC", RegistryHive::CurrentConfig}};

constexpr std::string_view kDigits = "0123456789ABCDEF";

std::string UpperAscii(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
  return upper;
}

std::uint8_t PairValue(std::string_view pair) {
  std::uint8_t value = 0;
  const auto [end, error] = std::from_chars(pair.data(), pair.data() + pair.size(), value, 16);
  return error == std::errc{} && end == pair.data() + pair.size() ? value : std::uint8_t{0};
}

}  // namespace

std::string ClsRegistryAccess::LongPath(std::string_view path) {
  std::string longPath(path);
  for (const Root& root : kRoots) ReplaceAll(longPath, root.shortName, root.longName);
  return longPath;
}

std::optional<ClsRegistryAccess::Place> ClsRegistryAccess::PlaceOf(std::string_view path) {
  const std::string longPath = LongPath(path);
  const auto separator = longPath.find('\\');
  const std::string name = longPath.substr(0, separator);
  const auto* const root =
      std::find_if(kRoots.begin(), kRoots.end(), [&](const Root& r) { return r.longName == name; });
  if (root == kRoots.end()) return std::nullopt;
  return Place{root->hive, separator == std::string::npos ? "" : longPath.substr(separator + 1)};
}

bool ClsRegistryAccess::CreateKey(std::string_view path) {
  const auto place = PlaceOf(path);
  return place && registry_.CreateKey(place->hive, place->path);
}

// Behind the name of a root, separators alone name the root.
bool ClsRegistryAccess::KillKey(std::string_view path) {
  const auto place = PlaceOf(path);
  return place && place->path.find_first_not_of('\\') != std::string::npos && KillTree(*place);
}

bool ClsRegistryAccess::KillTree(const Place& place) {
  const auto names = registry_.SubkeyNames(place.hive, place.path);
  if (!names) return false;
  for (const std::string& name : *names) {
    if (!KillTree({place.hive, place.path + "\\" + name})) return false;
  }
  return registry_.DeleteKey(place.hive, place.path);
}

bool ClsRegistryAccess::KeyExists(std::string_view path) {
  const auto place = PlaceOf(path);
  return place && registry_.KeyExists(place->hive, place->path);
}

bool ClsRegistryAccess::EnumKeys(std::string_view path, std::vector<std::string>& names, std::size_t& count) {
  const auto place = PlaceOf(path);
  auto found = place ? registry_.SubkeyNames(place->hive, place->path) : std::nullopt;
  names = found ? std::move(*found) : std::vector<std::string>{};
  count = names.size();
  return found.has_value();
}

bool ClsRegistryAccess::HaveSubkey(std::string_view path) {
  std::vector<std::string> names;
  std::size_t count = 0;
  return EnumKeys(path, names, count) && count > 0;
}

bool ClsRegistryAccess::Write(std::string_view path, std::string_view name, const RegistryValue& value) {
  const auto place = PlaceOf(path);
  if (!place) return false;
  if (!createKeys_ && !registry_.KeyExists(place->hive, place->path)) return false;
  return registry_.WriteValue(place->hive, place->path, name, value);
}

std::optional<RegistryValue> ClsRegistryAccess::Read(std::string_view path, std::string_view name) {
  const auto place = PlaceOf(path);
  return place ? registry_.ReadValue(place->hive, place->path, name) : std::nullopt;
}

bool ClsRegistryAccess::WriteString(std::string_view path, std::string_view name, std::string_view text) {
  return Write(path, name, {RegistryType::String, std::string(text)});
}

std::string ClsRegistryAccess::ReadString(std::string_view path, std::string_view name) {
  const auto value = Read(path, name);
  const bool isText =
      value && (value->type == RegistryType::String || value->type == RegistryType::ExpandString);
  return isText ? value->data : std::string();
}

bool ClsRegistryAccess::WriteDWORD(std::string_view path, std::string_view name, std::uint32_t number) {
  return Write(path, name, MakeDoubleWord(number));
}

std::uint32_t ClsRegistryAccess::ReadDWORD(std::string_view path, std::string_view name) {
  const auto value = Read(path, name);
  return value ? DoubleWordOf(*value).value_or(0) : 0;
}

bool ClsRegistryAccess::WriteBinary(std::string_view path, std::string_view name, std::string_view bytes) {
  return Write(path, name, {RegistryType::Binary, std::string(bytes)});
}

std::string ClsRegistryAccess::ReadBinary(std::string_view path, std::string_view name) {
  const auto value = Read(path, name);
  return value && value->type == RegistryType::Binary ? value->data : std::string();
}

bool ClsRegistryAccess::KillValue(std::string_view path, std::string_view name) {
  const auto place = PlaceOf(path);
  return place && registry_.DeleteValue(place->hive, place->path, name);
}

bool ClsRegistryAccess::ValueExists(std::string_view path, std::string_view name) {
  return Read(path, name).has_value();
}

std::size_t ClsRegistryAccess::EnumValues(std::string_view path, RegistryType type,
                                          std::vector<std::string>& names,
                                          std::vector<RegistryValue>& values) {
  names.clear();
  values.clear();
  const auto place = PlaceOf(path);
  const auto all = place ? registry_.ValueNames(place->hive, place->path) : std::nullopt;
  if (!all) return 0;
  for (const std::string& name : *all) {
    auto value = registry_.ReadValue(place->hive, place->path, name);
    if (!value || value->type != type) continue;
    names.push_back(name);
    values.push_back(std::move(*value));
  }
  return names.size();
}

std::string ClsRegistryAccess::BinToStr(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() * 3);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += {kDigits[byte >> 4], kDigits[byte & 0xF], ' '};
  }
  return text;
}

std::string ClsRegistryAccess::StrToBin(std::string_view hexadecimal) {
  std::string digits(hexadecimal);
  digits.erase(std::remove(digits.begin(), digits.end(), ' '), digits.end());
  std::string bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    bytes.push_back(static_cast<char>(PairValue(std::string_view(digits).substr(i, 2))));
  }
  return bytes;
}

bool ClsRegistryAccess::isBinValid(std::string_view text) {
  const std::string upper = UpperAscii(WithoutBlanks(text));
  return !upper.empty() && std::all_of(upper.begin(), upper.end(),
                                       [](char c) { return c == ' ' || kDigits.find(c) != kDigits.npos; });
}

}  // namespace lorelin
