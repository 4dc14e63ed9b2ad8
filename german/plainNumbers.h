#pragma once

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// A 1 that takes the form of its noun, years, numbers with groups or decimals, "2x".
[[nodiscard]] Found PlainNumberAt(const Tokens& tokens, std::size_t i);

// Any other number: "Kapitel 3", "14 Tage", "12b".
[[nodiscard]] Found IntegerAt(const Tokens& tokens, std::size_t i);

// "A380": a number that touches letters before it.
[[nodiscard]] Found NumberBehindLettersAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
