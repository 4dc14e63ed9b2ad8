#pragma once

#include <optional>
#include <string_view>

#include "extensions/german/textLooks.h"

namespace lorelin {

// An abbreviation that begins at `at`, with or without blanks between its parts.
[[nodiscard]] std::optional<SpokenMatch> AbbreviationAt(std::string_view text, std::size_t at);

}  // namespace lorelin
