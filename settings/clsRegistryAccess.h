#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ports/FileWriter.h"
#include "ports/Registry.h"

namespace lorelin {

// A line of an imported file that had no or only a doubtful effect.
struct ImportProblem {
  std::size_t line = 0;  // from 1
  std::string text;      // as it stands in the file
  std::string reason;    // German
};

// Keys and values of the registry by full paths: a root name, long ("HKEY_CURRENT_USER") or short ("HKCU"), a
// backslash, the subkey. Short names are replaced by the long ones wherever they stand in a path. Texts are
// UTF-8, binary data are byte strings. No operation throws; a wrong path, or a failure of the store, is
// "no success", an empty text or the number 0. Export and import use the REGEDIT4 text format of Windows 95
// with two deviations: nothing is escaped, and every quotation mark of a line is removed on import.
class ClsRegistryAccess {
 public:
  // Owns neither. `files` writes the exports.
  ClsRegistryAccess(Registry& registry, FileWriter& files) : registry_(registry), files_(files) {}

  // Whether writing a value creates a missing key (off at first); otherwise such a write is refused.
  [[nodiscard]] bool CreateKeyIfDoesntExists() const { return createKeys_; }
  void CreateKeyIfDoesntExists(bool offon) { createKeys_ = offon; }

  bool CreateKey(std::string_view path);
  // Deletes the key with everything below it. A root is refused.
  bool KillKey(std::string_view path);
  [[nodiscard]] bool KeyExists(std::string_view path);
  // The names of the direct subkeys and how many they are.
  bool EnumKeys(std::string_view path, std::vector<std::string>& names, std::size_t& count);
  [[nodiscard]] bool HaveSubkey(std::string_view path);

  bool WriteString(std::string_view path, std::string_view name, std::string_view text);
  // "" when the value is missing or no text.
  [[nodiscard]] std::string ReadString(std::string_view path, std::string_view name);
  bool WriteDWORD(std::string_view path, std::string_view name, std::uint32_t number);
  [[nodiscard]] std::uint32_t ReadDWORD(std::string_view path, std::string_view name);
  bool WriteBinary(std::string_view path, std::string_view name, std::string_view bytes);
  [[nodiscard]] std::string ReadBinary(std::string_view path, std::string_view name);
  bool KillValue(std::string_view path, std::string_view name);
  [[nodiscard]] bool ValueExists(std::string_view path, std::string_view name);
  // Names and data of the values of one type, in the store's order; their count.
  std::size_t EnumValues(std::string_view path, RegistryType type, std::vector<std::string>& names,
                         std::vector<RegistryValue>& values);

  // Appends the key and everything below it to the file; a new file gets the header first. Values of other
  // types than text, binary and double word become comments.
  bool ExportToReg(std::string_view path, const std::string& file);
  // Success when the file is there and begins as it has to. What was not understood is in ImportProblems; all
  // the rest was carried out. Values below the deletion of a key go to the key before it.
  bool ImportFromReg(const std::string& file);
  // The same with what the file holds.
  bool ImportText(std::string_view text);
  [[nodiscard]] const std::vector<ImportProblem>& ImportProblems() const { return problems_; }

  // Two hexadecimal digits for each byte, blanks anywhere; pairs that are none become zero bytes.
  [[nodiscard]] static std::string StrToBin(std::string_view hexadecimal);
  // "41 0A FF ", with a blank after the last pair too.
  [[nodiscard]] static std::string BinToStr(std::string_view bytes);
  [[nodiscard]] static bool isBinValid(std::string_view text);

 private:
  struct Place {
    RegistryHive hive;
    std::string path;
  };

  [[nodiscard]] static std::string LongPath(std::string_view path);
  [[nodiscard]] static std::optional<Place> PlaceOf(std::string_view path);
  bool KillTree(const Place& place);
  bool Write(std::string_view path, std::string_view name, const RegistryValue& value);
  [[nodiscard]] std::optional<RegistryValue> Read(std::string_view path, std::string_view name);
  void ExportKey(const std::string& path, std::string& out);
  void ExportValues(const std::string& path, std::string& out);
  void ImportLine(std::size_t number, std::string_view line, std::string& key);
  [[nodiscard]] std::string ImportKey(std::string_view line, std::string& key);
  [[nodiscard]] std::string ImportValue(std::string_view line, const std::string& key);

  Registry& registry_;
  FileWriter& files_;
  bool createKeys_ = false;
  std::vector<ImportProblem> problems_;
};

}  // namespace lorelin
