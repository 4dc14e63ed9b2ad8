#pragma once

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// Times of day, "14:30 Uhr", "9-17h", "8.30–12 Uhr", and durations, "1:45:30 Std.", "12:30 min".
[[nodiscard]] Found TimeAt(const Tokens& tokens, std::size_t i);

// "½ 8", "3/4 9" behind "um" and the like.
[[nodiscard]] Found PartOfHourAt(const Tokens& tokens, std::size_t i);

// Results and ratios, "3:2", "1:50".
[[nodiscard]] Found ScoreAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
