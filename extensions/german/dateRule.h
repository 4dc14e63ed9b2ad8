#pragma once

#include <optional>
#include <string_view>

#include "extensions/german/textLooks.h"

namespace lorelin {

// "3.10.2026", "3. 10.", "5. Mai 2026", in the case that the words before it ask for.
[[nodiscard]] std::optional<SpokenMatch> DateAt(std::string_view text, std::size_t at);
// The first day of two, and the date: "3. bis 5. Mai", "3.–5. Mai", "3. und 4. Oktober".
[[nodiscard]] std::optional<SpokenMatch> DayBeforeDateAt(std::string_view text, std::size_t at);
// "20:15 Uhr", "8.30 Uhr", "10–12 Uhr", "20:15".
[[nodiscard]] std::optional<SpokenMatch> TimeAt(std::string_view text, std::size_t at);

}  // namespace lorelin
