#pragma once

#include "german/tokens.h"

namespace lorelin {

// The label stands right before the token, in full or as an abbreviation.
[[nodiscard]] bool LabelBefore(const Tokens& tokens, std::size_t i);

// A word behind which digits make a code: "Artikelnummer", "Boeing", any of capitals only.
[[nodiscard]] bool CodeBefore(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
