#include "base/textEncoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <optional>

#include "base/utf16.h"

namespace lorelin {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

// Windows-1252, bytes 0x80 to 0x9F
// (https://www.unicode.org/Public/MAPPINGS/VENDORS/MICSFT/WINDOWS/CP1252.TXT).
constexpr std::array<char16_t, 32> kWindows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

unsigned Byte(char c) {
  return static_cast<unsigned char>(c);
}

bool IsContinuation(char c) {
  return (Byte(c) & 0xC0U) == 0x80U;
}

void AppendBasicPlane(std::string& text, unsigned code) {
  if (code < 0x80) {
    text.push_back(static_cast<char>(code));
  } else if (code < 0x800) {
    text.push_back(static_cast<char>(0xC0U | (code >> 6)));
    text.push_back(static_cast<char>(0x80U | (code & 0x3FU)));
  } else {
    text.push_back(static_cast<char>(0xE0U | (code >> 12)));
    text.push_back(static_cast<char>(0x80U | ((code >> 6) & 0x3FU)));
    text.push_back(static_cast<char>(0x80U | (code & 0x3FU)));
  }
}

std::string FromWindows1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const unsigned byte = Byte(c);
    AppendBasicPlane(text, byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80] : byte);
  }
  return text;
}

std::string WithBadBytesReplaced(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const std::size_t length = Utf8Length(bytes);
    text.append(length > 0 ? bytes.substr(0, length) : kReplacement);
    bytes.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return text;
}

// Eight bytes at a time as long as that goes: long texts are looked through before they are shown.
void SkipAscii(std::string_view& text) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080U;
  std::uint64_t bytes = 0;
  while (text.size() >= sizeof bytes) {
    std::memcpy(&bytes, text.data(), sizeof bytes);
    if ((bytes & kHighBits) != 0) break;
    text.remove_prefix(sizeof bytes);
  }
  while (!text.empty() && Byte(text[0]) < 0x80) text.remove_prefix(1);
}

// Nothing for a character that has no place there.
std::optional<char> Windows1252Byte(unsigned code) {
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
  const auto* const found = std::find(kWindows1252.begin(), kWindows1252.end(), code);
  if (found == kWindows1252.end()) return std::nullopt;
  return static_cast<char>(0x80 + (found - kWindows1252.begin()));
}

// Nothing when a character has no place there, or the text is not well-formed.
std::optional<std::string> ToWindows1252(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    const auto byte =
        length == 0 ? std::nullopt : Windows1252Byte(static_cast<unsigned>(FirstCharacter(text)));
    if (!byte) return std::nullopt;
    bytes.push_back(*byte);
    text.remove_prefix(length);
  }
  return bytes;
}

// Length of the sequence that the first byte announces and the bounds of the second byte (RFC 3629, section
// 4).
struct Lead {
  std::size_t length = 0;
  unsigned low = 0x80;
  unsigned high = 0xBF;
};

Lead LeadOf(unsigned byte) {
  if (byte < 0x80) return {.length = 1};
  if (byte >= 0xC2 && byte <= 0xDF) return {.length = 2};
  if (byte == 0xE0) return {.length = 3, .low = 0xA0};
  if (byte == 0xED) return {.length = 3, .high = 0x9F};
  if (byte >= 0xE1 && byte <= 0xEF) return {.length = 3};
  if (byte == 0xF0) return {.length = 4, .low = 0x90};
  if (byte == 0xF4) return {.length = 4, .high = 0x8F};
  if (byte >= 0xF1 && byte <= 0xF3) return {.length = 4};
  return {};
}

}  // namespace

std::size_t Utf8Length(std::string_view text) {
  if (text.empty()) return 0;
  const Lead lead = LeadOf(Byte(text[0]));
  if (lead.length <= 1) return lead.length;
  if (text.size() < lead.length) return 0;
  if (Byte(text[1]) < lead.low || Byte(text[1]) > lead.high) return 0;
  const auto rest = text.substr(2, lead.length - 2);
  return std::all_of(rest.begin(), rest.end(), IsContinuation) ? lead.length : 0;
}

char32_t FirstCharacter(std::string_view text) {
  const std::size_t length = Utf8Length(text);
  if (length <= 1) return text.empty() ? 0 : Byte(text[0]);
  char32_t code = Byte(text[0]) & (0x7FU >> length);
  for (const char c : text.substr(1, length - 1)) code = (code << 6) | (Byte(c) & 0x3FU);
  return code;
}

void AppendUtf8(std::string& text, char32_t character) {
  if (character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF)) {
    text += kReplacement;
  } else if (character < 0x10000) {
    AppendBasicPlane(text, static_cast<unsigned>(character));
  } else {
    text.push_back(static_cast<char>(0xF0U | (character >> 18)));
    text.push_back(static_cast<char>(0x80U | ((character >> 12) & 0x3FU)));
    text.push_back(static_cast<char>(0x80U | ((character >> 6) & 0x3FU)));
    text.push_back(static_cast<char>(0x80U | (character & 0x3FU)));
  }
}

bool IsValidUtf8(std::string_view text) {
  for (SkipAscii(text); !text.empty(); SkipAscii(text)) {
    const std::size_t length = Utf8Length(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

bool IsText(std::string_view bytes) {
  return bytes.starts_with(kByteOrderMark) || Utf16Order(bytes) || bytes.find('\0') == std::string_view::npos;
}

std::string DecodeText(std::string_view bytes) {
  if (const auto order = Utf16Order(bytes)) return FromUtf16(bytes, *order);
  if (bytes.starts_with(kByteOrderMark)) return WithBadBytesReplaced(bytes.substr(kByteOrderMark.size()));
  return IsValidUtf8(bytes) ? std::string(bytes) : FromWindows1252(bytes);
}

std::string EncodeText(std::string_view text) {
  const auto bytes = ToWindows1252(text);
  if (bytes && (bytes->size() == text.size() || !IsValidUtf8(*bytes))) return *bytes;
  return std::string(kByteOrderMark).append(text);
}

std::string WithPlainLineEnds(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (std::size_t end = text.find('\r'); end != std::string_view::npos; end = text.find('\r')) {
    plain.append(text.substr(0, end));
    text.remove_prefix(end + 1);
    if (!text.starts_with('\n')) plain.push_back('\n');
  }
  plain.append(text);
  return plain;
}

std::string_view FromCharacter(std::string_view text, std::size_t index) {
  std::size_t at = 0;
  while (at < text.size() && (IsContinuation(text[at]) || index-- > 0)) ++at;
  return text.substr(at);
}

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return !IsContinuation(c); }));
}

}  // namespace lorelin
