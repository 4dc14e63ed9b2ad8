#pragma once

#include <optional>
#include <string_view>

#include "extensions/german/textLooks.h"

namespace lorelin {

// A date, time, sum, measure, ordinal, telephone number or other number in words that begins at `at`, where
// no letter or digit stands before. A number that is none of them, and nothing but digits, is left to the
// engine.
[[nodiscard]] std::optional<SpokenMatch> NumberPhraseAt(std::string_view text, std::size_t at);

// A Roman numeral that belongs to the name or word before it: "XIV." behind "Ludwig", "IV" behind "Kapitel".
[[nodiscard]] std::optional<SpokenMatch> RomanAt(std::string_view text, std::size_t at);

// The ending of an ordinal at this place ("e", "er", "en" …) by the words before it; "" when those do not
// tell.
[[nodiscard]] std::string_view OrdinalEnding(std::string_view text, std::size_t at);

}  // namespace lorelin
