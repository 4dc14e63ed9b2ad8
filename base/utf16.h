#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lorelin {

// Which byte of a unit of UTF-16 comes first.
enum class ByteOrder { LittleEndian, BigEndian };

// The order whose byte-order mark the bytes begin with. The mark of UTF-32 is none.
[[nodiscard]] std::optional<ByteOrder> Utf16Order(std::string_view bytes);

// The text behind the mark; halves of a pair and a single last byte become U+FFFD.
[[nodiscard]] std::string FromUtf16(std::string_view bytes, ByteOrder order);

// The bytes of a UTF-8 text, behind the mark.
[[nodiscard]] std::string ToUtf16(std::string_view text, ByteOrder order);

}  // namespace lorelin
