#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lorelin {

// Whether the bytes can be a text: without a byte-order mark, one has no NUL.
[[nodiscard]] bool IsText(std::string_view bytes);

// The text of a file's bytes in UTF-8. A byte-order mark, which is dropped, tells UTF-8 and UTF-16; without
// one it is taken as UTF-8 when it is valid throughout, else as Windows-1252 (the five unassigned bytes
// become the C1 controls of the same number). After a byte-order mark, bytes that fit no character become
// U+FFFD. Line ends stay as they are.
[[nodiscard]] std::string DecodeText(std::string_view bytes);

// The bytes in which UTF-8 text is stored so that DecodeText gives it back: Windows-1252 when every character
// has a place there, else (and where those bytes could be taken for UTF-8) UTF-8 behind a byte-order mark.
// Line ends stay as they are.
[[nodiscard]] std::string EncodeText(std::string_view text);

// Appends a character; what is none (a surrogate, a number beyond U+10FFFF) as U+FFFD.
void AppendUtf8(std::string& text, char32_t character);

// The first character of a text that begins with a well-formed one.
[[nodiscard]] char32_t FirstCharacter(std::string_view text);

// Well-formed by RFC 3629: no overlong forms, surrogates or numbers beyond U+10FFFF.
[[nodiscard]] bool IsValidUtf8(std::string_view text);

// Number of bytes of the well-formed character at the front of `text`; 0 when there is none.
[[nodiscard]] std::size_t Utf8Length(std::string_view text);

// Line ends CR LF and CR as LF.
[[nodiscard]] std::string WithPlainLineEnds(std::string_view text);

// The text from the character with this index (from 0) on; "" behind the end.
[[nodiscard]] std::string_view FromCharacter(std::string_view text, std::size_t index);

[[nodiscard]] std::size_t CharacterCount(std::string_view text);

}  // namespace lorelin
