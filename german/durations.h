#pragma once

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// "1:02,34 min", "1:02:45,3 Std.", "1:45:30 Std.", "2:15 h", "Fahrzeit 1:42".
[[nodiscard]] Found DurationAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
