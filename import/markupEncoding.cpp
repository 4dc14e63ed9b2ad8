#include "import/markupEncoding.h"

#include <algorithm>
#include <cctype>

#include "base/text.h"
#include "base/textEncoding.h"
#include "base/utf16.h"
#include "import/namedEncoding.h"

namespace lorelin {
namespace {

constexpr std::size_t kDeclarations = 4096;  // bytes in which a page has to say so
constexpr std::string_view kReplacement = "\uFFFD";

// The word behind `key` and an equal sign, in quotes or not.
std::string ValueOf(std::string_view text, std::string_view key) {
  for (auto at = text.find(key); at != std::string_view::npos; at = text.find(key, at + 1)) {
    std::string_view rest = text.substr(at + key.size());
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t\r\n"), rest.size()));
    if (!rest.starts_with('=')) continue;
    rest.remove_prefix(std::min(rest.find_first_not_of("= \t\r\n\"'"), rest.size()));
    return std::string(rest.substr(0, rest.find_first_of("\"' \t\r\n;>?/")));
  }
  return {};
}

std::string DeclaredEncoding(std::string_view bytes) {
  const std::string begin = LowerAscii(bytes.substr(0, kDeclarations));
  if (begin.starts_with("<?xml")) {
    const std::string named = ValueOf(begin.substr(0, begin.find("?>")), "encoding");
    if (!named.empty()) return named;
  }
  return ValueOf(begin, "charset");
}

// What pages call these means more than their standard says.
std::string MeantEncoding(const std::string& name) {
  if (name == "iso-8859-1" || name == "latin1" || name == "latin-1" || name == "us-ascii" ||
      name == "ascii" || name == "iso_8859-1" || name == "iso8859-1") {
    return "windows-1252";
  }
  if (name == "iso-8859-9") return "windows-1254";
  if (name == "gb2312" || name == "gbk") return "gb18030";
  return name;
}

// UTF-8 with every byte that fits no character replaced.
std::string Repaired(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const std::size_t size = Utf8Length(bytes);
    text += size > 0 ? bytes.substr(0, size) : kReplacement;
    bytes.remove_prefix(std::max<std::size_t>(size, 1));
  }
  return text;
}

// A file that was cut short may end within a character.
std::string_view WithoutCutCharacter(std::string_view bytes) {
  std::size_t end = bytes.size();
  for (int i = 0; i < 3 && end > 0 && (static_cast<unsigned char>(bytes[end - 1]) & 0xC0U) == 0x80U; ++i)
    --end;
  if (end > 0 && static_cast<unsigned char>(bytes[end - 1]) >= 0xC0U &&
      Utf8Length(bytes.substr(end - 1)) == 0) {
    return bytes.substr(0, end - 1);
  }
  return bytes;
}

bool IsNamePart(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_' || c == ':' || c == '.';
}

}  // namespace

std::string DecodeNamed(std::string_view bytes, std::string_view encoding) {
  const std::string name = MeantEncoding(LowerAscii(encoding));
  if (name.empty() || !std::all_of(name.begin(), name.end(), &IsNamePart)) return {};
  if (name == "utf-8" || name == "utf8") return Repaired(bytes);
  const auto decoded = DecodedBySystem(bytes, name);
  return decoded ? Repaired(*decoded) : std::string();
}

std::string DecodeXml(std::string_view bytes) {
  const std::string declared = DeclaredEncoding(bytes);
  return declared.empty() || declared.starts_with("utf") ? std::string() : DecodeNamed(bytes, declared);
}

std::string DecodeMarkup(std::string_view bytes, std::string_view served) {
  if (Utf16Order(bytes) || bytes.starts_with("\xEF\xBB\xBF")) return DecodeText(bytes);
  const std::string_view whole = WithoutCutCharacter(bytes);
  // One letter alone says little about the encoding.
  const bool sure = whole.size() == bytes.size() || whole.find_first_of("\xC3\xE2") != std::string_view::npos;
  // An encoding of seven bits looks like UTF-8 as well.
  const bool sevenBits = LowerAscii(served).starts_with("iso-2022-");
  if (sure && !sevenBits && IsValidUtf8(whole)) return std::string(whole);
  for (const std::string& name : {std::string(served), DeclaredEncoding(bytes)}) {
    // Who can read a declaration without a mark reads no UTF-16.
    if (LowerAscii(name).starts_with("utf-16") || LowerAscii(name).starts_with("utf16")) continue;
    std::string text = DecodeNamed(bytes, name);
    if (!text.empty()) return text;
  }
  return DecodeText(bytes);
}

bool LooksLikeText(std::string_view bytes) {
  if (Utf16Order(bytes)) return true;
  if (bytes.find('\0') != std::string_view::npos) return false;
  const auto controls = std::count_if(bytes.begin(), bytes.end(), [](char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\n' && c != '\r' && c != '\t' && c != '\f';
  });
  return static_cast<std::size_t>(controls) * 100 <= bytes.size();
}

}  // namespace lorelin
