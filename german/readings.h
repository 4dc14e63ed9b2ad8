#pragma once

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// What the tokens from one on are, in words: the first of all readings that fits; nothing when they stay as
// they are.
[[nodiscard]] Found ReadingAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
