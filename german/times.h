#pragma once

#include <cstdint>
#include <optional>

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// Times of day, "14:30 Uhr", "9-17h", "8.30–12 Uhr", and durations.
[[nodiscard]] Found TimeAt(const Tokens& tokens, std::size_t i);

// "½ 8", "3/4 9" behind "um" and the like.
[[nodiscard]] Found PartOfHourAt(const Tokens& tokens, std::size_t i);

// Results and ratios, "3:2", "1:50".
[[nodiscard]] Found ScoreAt(const Tokens& tokens, std::size_t i);

// Two digits below sixty.
[[nodiscard]] std::optional<std::uint64_t> SixtiethAt(const Tokens& tokens, std::size_t i);

// "um", "ab", "Mo." or the like stands before, so that a time of day is to come.
[[nodiscard]] bool StandsBehindTimeWord(const Tokens& tokens, std::size_t i);

constexpr std::uint64_t kFirstMorningHour = 6;  // fewer may as well be a duration

}  // namespace lorelin
