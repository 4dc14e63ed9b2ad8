#pragma once

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

}  // namespace lorelin
