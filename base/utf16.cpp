#include "base/utf16.h"

#include <algorithm>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr char32_t kByteOrderMark = 0xFEFF;
constexpr char32_t kReplacement = 0xFFFD;
constexpr std::size_t kUnit = 2;

bool IsLead(char32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}

bool IsTrail(char32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

char32_t UnitAt(std::string_view bytes, std::size_t at, ByteOrder order) {
  const auto first = static_cast<unsigned char>(bytes[at]);
  const auto second = static_cast<unsigned char>(bytes[at + 1]);
  return order == ByteOrder::BigEndian ? static_cast<char32_t>(first << 8 | second)
                                       : static_cast<char32_t>(second << 8 | first);
}

void AppendUnit(std::string& bytes, char32_t unit, ByteOrder order) {
  const char high = static_cast<char>(unit >> 8);
  const char low = static_cast<char>(unit & 0xFF);
  bytes.push_back(order == ByteOrder::BigEndian ? high : low);
  bytes.push_back(order == ByteOrder::BigEndian ? low : high);
}

void AppendCharacter(std::string& bytes, char32_t character, ByteOrder order) {
  if (character < 0x10000) return AppendUnit(bytes, character, order);
  AppendUnit(bytes, 0xD800 + ((character - 0x10000) >> 10), order);
  AppendUnit(bytes, 0xDC00 + ((character - 0x10000) & 0x3FF), order);
}

}  // namespace

std::optional<ByteOrder> Utf16Order(std::string_view bytes) {
  if (bytes.starts_with("\xFE\xFF")) return ByteOrder::BigEndian;
  if (bytes.starts_with(std::string_view("\xFF\xFE\0\0", 4))) return std::nullopt;
  return bytes.starts_with("\xFF\xFE") ? std::optional(ByteOrder::LittleEndian) : std::nullopt;
}

std::string FromUtf16(std::string_view bytes, ByteOrder order) {
  std::string text;
  text.reserve(bytes.size() / kUnit);
  std::size_t at = kUnit;  // behind the mark
  for (; at + kUnit <= bytes.size(); at += kUnit) {
    char32_t character = UnitAt(bytes, at, order);
    const char32_t next = at + 2 * kUnit <= bytes.size() ? UnitAt(bytes, at + kUnit, order) : 0;
    if (IsLead(character) && IsTrail(next)) {
      character = 0x10000 + ((character - 0xD800) << 10) + (next - 0xDC00);
      at += kUnit;
    }
    AppendUtf8(text, character);
  }
  if (at < bytes.size()) AppendUtf8(text, kReplacement);
  return text;
}

std::string ToUtf16(std::string_view text, ByteOrder order) {
  std::string bytes;
  bytes.reserve(kUnit * (text.size() + 1));
  AppendCharacter(bytes, kByteOrderMark, order);
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    AppendCharacter(bytes, length > 0 ? FirstCharacter(text) : kReplacement, order);
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return bytes;
}

}  // namespace lorelin
