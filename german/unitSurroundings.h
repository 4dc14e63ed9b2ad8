#pragma once

#include "german/tokens.h"
#include "german/units.h"

namespace lorelin {

// The unit of a sign that is one only in some surroundings: "M" for months behind years, "M", "R" and the
// like where somebody knits.
[[nodiscard]] std::optional<Unit> UnitBySurroundings(const Tokens& tokens, std::size_t i);

// "50 g" of "125 m/50 g", but not "150 PS" of "110 kW/150 PS".
[[nodiscard]] bool MayBeDividedBy(const Unit& unit);

// "lfd. m", "lfdm", "lfm".
[[nodiscard]] std::optional<Unit> RunningMeterAt(const Tokens& tokens, std::size_t i);

// "(m²a)", "(m²·K)", "mK" behind a stroke.
[[nodiscard]] std::optional<PerUnit> PerTwoUnitsBehind(const Tokens& tokens, std::size_t i);

// 20" is a measure where no quotation is open.
[[nodiscard]] std::optional<Unit> InchAt(const Tokens& tokens, std::size_t i);

// "63° 37′".
[[nodiscard]] std::optional<Unit> ArcMinuteAt(const Tokens& tokens, std::size_t i);

// Current, sockets or the like are spoken of.
[[nodiscard]] bool HasElectricContext(const Tokens& tokens);

}  // namespace lorelin
