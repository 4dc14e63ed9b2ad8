#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// How a text is stored in a file.
struct TextFormat {
  enum class Encoding {
    SingleBytes,  // Windows-1252 where every character has a place there, see EncodeText
    Utf8,
    Utf8WithMark,  // behind a byte-order mark, like the following
    Utf16LittleEndian,
    Utf16BigEndian,
  };
  Encoding encoding = Encoding::SingleBytes;
  bool carriageReturns = false;  // lines end with CR LF, else with LF

  bool operator==(const TextFormat&) const = default;
};

// The format of a file's bytes: what a document that was read is written in again. Without a character beyond
// ASCII that is SingleBytes; the first line end tells for all.
[[nodiscard]] TextFormat FormatOf(std::string_view bytes);

// The bytes of a text with "\n" line ends; no character is lost in any format.
[[nodiscard]] std::string StoredText(std::string_view text, const TextFormat& format);

}  // namespace lorelin
