// Export and import of ClsRegistryAccess.

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <utility>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/text.h"
#include "base/textEncoding.h"
#include "richtext/textFormat.h"
#include "settings/clsRegistryAccess.h"

namespace lorelin {
namespace {

constexpr std::string_view kHeader = "REGEDIT4";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::array kExportedTypes{RegistryType::String, RegistryType::Binary, RegistryType::DoubleWord};
constexpr std::size_t kDoubleWordDigits = 8;

std::string Quoted(const std::string& text) {
  return "\"" + text + "\"";
}

std::string HexList(const std::string& bytes) {
  std::string text(WithoutBlanks(ClsRegistryAccess::BinToStr(bytes)));
  std::replace(text.begin(), text.end(), ' ', ',');
  return text;
}

std::string EightDigits(std::uint32_t number) {
  std::string text(kDoubleWordDigits, '0');
  for (std::size_t i = kDoubleWordDigits; i-- > 0; number >>= 4) text[i] = "0123456789ABCDEF"[number & 0xF];
  return text;
}

std::string DataText(const RegistryValue& value) {
  switch (value.type) {
    case RegistryType::String:
      return Quoted(value.data);
    case RegistryType::Binary:
      return "hex:" + HexList(value.data);
    case RegistryType::DoubleWord:
      return "dword:" + EightDigits(DoubleWordOf(value).value_or(0));
    case RegistryType::ExpandString:
      break;
  }
  return "hex(" + std::to_string(static_cast<std::uint32_t>(value.type)) + "):" + HexList(value.data);
}

std::optional<std::uint32_t> HexNumber(std::string_view text) {
  text = WithoutBlanks(text);
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, 16);
  if (text.empty() || error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

bool IsHexList(std::string_view spaced) {
  const auto digits = std::count_if(spaced.begin(), spaced.end(), [](char c) { return c != ' '; });
  return digits == 0 || (digits % 2 == 0 && ClsRegistryAccess::isBinValid(spaced));
}

std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (;;) {
    const auto end = text.find(kLineEnd);
    lines.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return lines;
    text.remove_prefix(end + kLineEnd.size());
  }
}

}  // namespace

bool ClsRegistryAccess::ExportToReg(std::string_view path, const std::string& file) {
  if (!KeyExists(path)) return false;
  try {
    std::string text;
    TextFormat format;
    if (FileExists(file)) {
      const std::string bytes = ReadFileBytes(file);
      format = FormatOf(bytes);
      text = DecodeText(bytes);
    } else {
      text = std::string(kHeader) + "\r\n\r\n";
    }
    ExportKey(LongPath(path), text);
    format.carriageReturns = false;  // they are in the text already
    files_.Replace(file, StoredText(text, format));
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

void ClsRegistryAccess::ExportKey(const std::string& path, std::string& out) {
  out += "[" + path + "]\r\n";
  ExportValues(path, out);
  out += kLineEnd;
  std::vector<std::string> names;
  std::size_t count = 0;
  EnumKeys(path, names, count);
  const std::string parent = path + "\\";
  for (const std::string& name : names) {
    std::string key = parent;
    key += name;
    ExportKey(key, out);
  }
}

// The default text first, then texts, binary data and numbers, then what this format has no place for.
void ClsRegistryAccess::ExportValues(const std::string& path, std::string& out) {
  const auto place = PlaceOf(path);
  const auto names = place ? registry_.ValueNames(place->hive, place->path) : std::nullopt;
  if (!names) return;
  const auto each = [&](auto&& visit) {
    for (const std::string& name : *names) {
      if (const auto value = registry_.ReadValue(place->hive, place->path, name)) visit(name, *value);
    }
  };
  each([&](const std::string& name, const RegistryValue& value) {
    if (name.empty() && value.type == RegistryType::String) out += "@=" + DataText(value) + "\r\n";
  });
  for (const RegistryType type : kExportedTypes) {
    each([&](const std::string& name, const RegistryValue& value) {
      if (value.type != type || (name.empty() && type == RegistryType::String)) return;
      out += Quoted(name) + "=" + DataText(value) + "\r\n";
    });
  }
  each([&](const std::string& name, const RegistryValue& value) {
    const bool exported =
        std::find(kExportedTypes.begin(), kExportedTypes.end(), value.type) != kExportedTypes.end();
    if (!exported) out += ";" + Quoted(name) + "=" + DataText(value) + "\r\n";
  });
}

bool ClsRegistryAccess::ImportFromReg(const std::string& file) {
  problems_.clear();
  try {
    return ImportText(DecodeText(ReadFileBytes(file)));
  } catch (const RuntimeError&) {
    return false;
  }
}

bool ClsRegistryAccess::ImportText(std::string_view text) {
  problems_.clear();
  const auto lines = Lines(text);
  if (LowerAscii(lines.front()) != LowerAscii(kHeader)) {
    const bool otherLineEnds = LowerAscii(text).starts_with(LowerAscii(kHeader) + "\n");
    problems_.push_back({1, std::string(kHeader),
                         otherLineEnds ? "Die Zeilen enden mit LF; dieses Format verlangt CR LF."
                                       : "Die Datei beginnt nicht mit REGEDIT4."});
    return false;
  }
  std::string key;
  for (std::size_t i = 1; i < lines.size(); ++i) ImportLine(i + 1, lines[i], key);
  return true;
}

void ClsRegistryAccess::ImportLine(std::size_t number, std::string_view line, std::string& key) {
  std::string stripped(WithoutBlanks(line));
  ReplaceAll(stripped, "\"", "");
  std::string reason;
  if (stripped.starts_with('[')) {
    reason = ImportKey(stripped, key);
  } else if (!stripped.empty() && !stripped.starts_with(';')) {
    reason = ImportValue(stripped, key);
  }
  if (!reason.empty()) problems_.push_back({number, std::string(line), reason});
}

// Values below a key line that means nothing belong to no key, certainly not to the one before; those below a
// deletion do.
std::string ClsRegistryAccess::ImportKey(std::string_view line, std::string& key) {
  const std::string before = std::exchange(key, {});
  const auto end = line.rfind(']');
  if (end == std::string_view::npos) return "Die Klammer „]“ fehlt.";
  const std::string name(line.substr(1, end - 1));
  if (name.find('\n') != std::string::npos) return "Die Zeile endet mit LF; dieses Format verlangt CR LF.";
  if (name.starts_with('-')) {
    key = before;
    return !KeyExists(name.substr(1)) || KillKey(name.substr(1)) ? ""
                                                                 : "Der Schlüssel ließ sich nicht löschen.";
  }
  if (!CreateKey(name)) return "Der Schlüssel ließ sich nicht anlegen.";
  key = name;
  return {};
}

std::string ClsRegistryAccess::ImportValue(std::string_view line, const std::string& key) {
  const auto equals = line.find('=');
  if (equals == std::string_view::npos) return "Die Zeile ist weder Schlüssel noch Wert.";
  if (key.empty()) return "Der Wert gehört zu keinem Schlüssel.";
  std::string_view name = line.substr(0, equals);
  if (name == "@") name = {};
  const std::string_view data = line.substr(equals + 1);
  const std::string lower = LowerAscii(data.substr(0, 6));
  if (WithoutBlanks(data) == "-") {
    return !ValueExists(key, name) || KillValue(key, name) ? "" : "Der Wert ließ sich nicht löschen.";
  }
  bool written = false;
  if (lower.starts_with("hex:")) {
    std::string spaced(data.substr(4));
    std::replace(spaced.begin(), spaced.end(), ',', ' ');
    if (!IsHexList(spaced)) return "Hinter „hex:“ stehen keine Bytes.";
    written = WriteBinary(key, name, StrToBin(spaced));
  } else if (lower == "dword:") {
    const auto number = HexNumber(data.substr(6));
    if (!number) return "Hinter „dword:“ steht keine Zahl.";
    written = WriteDWORD(key, name, *number);
  } else {
    written = WriteString(key, name, data);
    if (written && lower.starts_with("hex(")) return "Diese Art von Wert wurde als Text übernommen.";
  }
  return written ? "" : "Der Wert ließ sich nicht schreiben.";
}

}  // namespace lorelin
