#pragma once

#include <cstddef>

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// Units and what joins measures, where the number is not just before them.

// "60 Bilder/s".
[[nodiscard]] Found WordPerUnitAt(const Tokens& tokens, std::size_t i);

// "in km/h", "€/m²": a unit without a number is said only when it has two parts.
[[nodiscard]] Found LoneUnitAt(const Tokens& tokens, std::size_t i);

// "5 €–10 €", "3 kg - 5 kg": between two sums or measures.
[[nodiscard]] Found DashBetweenSumsAt(const Tokens& tokens, std::size_t i);

// "je kWh", "pro St.", "zwei EL", "einige km", "Angaben in cm".
[[nodiscard]] Found UnitBehindWordAt(const Tokens& tokens, std::size_t i);

// "4–8 (selten bis 12) cm lang": the unit of numbers before and in the brackets.
[[nodiscard]] Found UnitBehindBracketsAt(const Tokens& tokens, std::size_t i);

// "km-Stand", "kWh-Preis", "%-Punkte".
[[nodiscard]] Found UnitOfCompoundAt(const Tokens& tokens, std::size_t i);

// "3,5 m x 4 m": between two measures.
[[nodiscard]] Found TimesBetweenMeasuresAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
