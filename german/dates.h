#pragma once

#include <optional>
#include <string_view>

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// "Mai", "Januar".
[[nodiscard]] bool IsMonth(std::string_view word);

struct Month {
  std::size_t number = 1;  // from 1
  std::size_t end = 0;     // the token behind, the point of "Okt." included
};

// A month by its name or abbreviation.
[[nodiscard]] std::optional<Month> MonthAt(const Tokens& tokens, std::size_t i);

struct DateShape {
  std::size_t day = 0;
  std::size_t month = 0;
  std::size_t year = Tokens::kNone;  // its token
  std::size_t end = 0;               // the token behind
};

// A day and a month: "3.10.", "3.10.2024", "3. Okt. 2024"; the last point is part of it.
[[nodiscard]] std::optional<DateShape> DateShapeAt(const Tokens& tokens, std::size_t i);

// "Ziff. 4.1 und 4.2.": another section of those that are named before the token.
[[nodiscard]] bool StandsBehindSection(const Tokens& tokens, std::size_t i);

// A single day with this ending of its ordinal: "en" for "dritten Mai".
[[nodiscard]] Found DayWithEnding(const Tokens& tokens, std::size_t i, std::string_view ending);

// Dates of every kind: also "1.–14. Juli", "24./25.12.", "2024-05-03", "05/2024", "Mai '24".
[[nodiscard]] Found DateAt(const Tokens& tokens, std::size_t i);

// The day of a month stands behind "Mo.," or "Montag,".
[[nodiscard]] bool StandsBehindWeekday(const Tokens& tokens, std::size_t i);

// "dem " or "den ", as it is said between the weekday and its day; empty for neither.
[[nodiscard]] std::string_view ArticleBehindWeekday(const Tokens& tokens, std::size_t i);

// "Okt. 2024", "Mo., 3.10.", "Mo–Fr".
[[nodiscard]] Found CalendarWordAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
