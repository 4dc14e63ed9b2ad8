#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "german/nouns.h"
#include "german/tokens.h"

namespace lorelin {

// A unit or a counted thing as it is written behind a number.
struct Unit {
  std::string singular;
  std::string plural;
  std::string dativePlural;
  Gender gender = Gender::Masculine;
  std::size_t end = 0;         // the token behind
  bool endsWithPoint = false;  // that token before is the point of its abbreviation
  bool doubtfulPoint = false;  // ... which is rather that of the sentence: "25 min."
  bool multiplies = false;     // "Mio.": the thing itself may follow
  bool isWord = false;         // written out in full: only the number before changes
};

// The unit at the token: "kg", "km/h", "€/m²", "Mio. km", "mg/kg", "Std."; nothing when there is none.
[[nodiscard]] std::optional<Unit> UnitAt(const Tokens& tokens, std::size_t i);

struct Currency {
  std::string_view name;
  std::string_view hundredth;
  Gender gender = Gender::Masculine;
  std::size_t end = 0;  // the token behind
  bool isWord = false;
};

// "€", "EUR", "CHF", "Euro".
[[nodiscard]] std::optional<Currency> CurrencyAt(const Tokens& tokens, std::size_t i);

// "pro Monat", "pro Quadratmeter", "auf hundert Kilometer" for what follows a stroke at the token.
struct PerUnit {
  std::string words;
  std::size_t end = 0;
};
[[nodiscard]] std::optional<PerUnit> PerAt(const Tokens& tokens, std::size_t i);

// The multiple at the token: "Mio.", "Mrd.", "Tsd.".
[[nodiscard]] std::optional<Unit> MultipleAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
