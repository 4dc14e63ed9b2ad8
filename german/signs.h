#pragma once

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// Signs that are words: "§ 5", "&", "≈", "× ", "<", "* 1970".
[[nodiscard]] Found SignAt(const Tokens& tokens, std::size_t i);

// The point of "p < .001" and the colon of "ISO 9001:2015".
[[nodiscard]] Found PunctuationAt(const Tokens& tokens, std::size_t i);

// The "./." of lawyers and merchants begins at the token.
[[nodiscard]] bool IsAgainstSign(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
