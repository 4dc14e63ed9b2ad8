#include "richtext/textFormat.h"

#include <algorithm>

#include "base/text.h"
#include "base/textEncoding.h"
#include "base/utf16.h"

namespace lorelin {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

TextFormat::Encoding EncodingOf(std::string_view bytes) {
  if (const auto order = Utf16Order(bytes)) {
    return order == ByteOrder::BigEndian ? TextFormat::Encoding::Utf16BigEndian
                                         : TextFormat::Encoding::Utf16LittleEndian;
  }
  if (bytes.starts_with(kByteOrderMark)) return TextFormat::Encoding::Utf8WithMark;
  return !IsAscii(bytes) && IsValidUtf8(bytes) ? TextFormat::Encoding::Utf8
                                               : TextFormat::Encoding::SingleBytes;
}

bool HasCarriageReturns(std::string_view text) {
  const auto end = text.find('\n');
  return end != std::string_view::npos && end > 0 && text[end - 1] == '\r';
}

}  // namespace

TextFormat FormatOf(std::string_view bytes) {
  const bool wide = Utf16Order(bytes).has_value();
  return {.encoding = EncodingOf(bytes),
          .carriageReturns = wide ? HasCarriageReturns(DecodeText(bytes)) : HasCarriageReturns(bytes)};
}

std::string StoredText(std::string_view text, const TextFormat& format) {
  std::string stored(text);
  if (format.carriageReturns) ReplaceAll(stored, "\n", "\r\n");
  switch (format.encoding) {
    case TextFormat::Encoding::Utf8:
      return stored;
    case TextFormat::Encoding::Utf8WithMark:
      return std::string(kByteOrderMark) + stored;
    case TextFormat::Encoding::Utf16LittleEndian:
      return ToUtf16(stored, ByteOrder::LittleEndian);
    case TextFormat::Encoding::Utf16BigEndian:
      return ToUtf16(stored, ByteOrder::BigEndian);
    case TextFormat::Encoding::SingleBytes:
      break;
  }
  return EncodeText(stored);
}

}  // namespace lorelin
