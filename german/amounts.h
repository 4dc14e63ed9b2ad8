#pragma once

#include <optional>
#include <string_view>

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// Sums and measures behind a number or sign at the token: "5,50 €", "€ 5", "10–12 kg", "-5 °C", "½ TL", "3 x
// 4 m".
[[nodiscard]] Found AmountAt(const Tokens& tokens, std::size_t i);

// A currency before its number: "€ 20", "EUR 3,50".
[[nodiscard]] Found CurrencyFirstAt(const Tokens& tokens, std::size_t i);

// "-5", "−3 °C", "+2 %": a sign before a number.
[[nodiscard]] Found SignedAt(const Tokens& tokens, std::size_t i);

// "½", "3/4" without a unit.
[[nodiscard]] Found FractionPhraseAt(const Tokens& tokens, std::size_t i);

// What stands between the two numbers of a range or product, in words.
struct Between {
  std::string_view words;
  std::size_t end = 0;
};
[[nodiscard]] std::optional<Between> BetweenAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
