#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// The text of a page's bytes in UTF-8. A byte-order mark counts first, then that it is UTF-8, then what its
// server says ("" for nothing), then what the page declares of itself; else it is read as other texts are.
[[nodiscard]] std::string DecodeMarkup(std::string_view bytes, std::string_view served = {});

// Bytes in the encoding of that name; what fits none becomes U+FFFD. "" for a name that is not known.
[[nodiscard]] std::string DecodeNamed(std::string_view bytes, std::string_view encoding);

// Markup that names its encoding, in UTF-8; "" for one that is in UTF-8 or UTF-16, or names none that is
// known.
[[nodiscard]] std::string DecodeXml(std::string_view bytes);

// Whether the bytes, whatever their encoding, can be a text that a person wrote.
[[nodiscard]] bool LooksLikeText(std::string_view bytes);

}  // namespace lorelin
