#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// UTF-8 of a text in the Compound Text Encoding 1.1 of the X Consortium: ISO 2022 with escape sequences that
// choose the character sets. What is not known is left out.
[[nodiscard]] std::string FromCompoundText(std::string_view bytes);

}  // namespace lorelin
