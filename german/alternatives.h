#pragma once

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// "Mitarbeiter/in", "eine/n", "Koch/Köchin": two words in the place of one, for women and men.
[[nodiscard]] Found AlternativesAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
