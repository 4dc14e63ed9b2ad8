#pragma once

#include <string>
#include <string_view>

#include "richtext/RichText.h"

namespace lorelin {

// Reading and writing RTF (Microsoft, Rich Text Format Specification, version 1.9.1, 2008). Pure.

// Whether a file's bytes are RTF: they begin with "{\rtf".
[[nodiscard]] bool IsRtf(std::string_view bytes);

// What can be read of a file, broken ones included: text, fonts, sizes, weight, slant, lines, super- and
// subscript, colours, alignment and indents; lists as the text of their numbers, tables as lines with tabs,
// pictures not at all. Hidden text stays hidden. Linear in the size; groups deeper than a thousand levels are
// left out.
[[nodiscard]] RichText ReadRtf(std::string_view bytes);

// RTF from which ReadRtf gives back the same; pure ASCII.
[[nodiscard]] std::string WriteRtf(const RichText& text);

}  // namespace lorelin
