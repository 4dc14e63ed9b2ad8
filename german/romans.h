#pragma once

#include <string>
#include <string_view>

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// A Roman number whose point makes an ordinal of it: "XX. Jahrhundert", "Ludwig XIV.".
[[nodiscard]] bool IsRomanOrdinalAt(const Tokens& tokens, std::size_t i);

// "Maximilian I. Joseph": the token is a name that goes on with that of a ruler, unless a verb behind it
// makes a subject of it.
[[nodiscard]] bool GoesOnWithName(const Tokens& tokens, std::size_t i);

// "Kapitel IV", "Ludwigs XIV.", "im XX. Jahrhundert".
[[nodiscard]] Found RomanAt(const Tokens& tokens, std::size_t i);

// "der Große" behind a name, in the name's case: "dem Großen".
[[nodiscard]] std::string WithNameOf(const Tokens& tokens, std::size_t i, std::string_view adjective);

}  // namespace lorelin
