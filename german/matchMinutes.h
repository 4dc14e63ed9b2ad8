#pragma once

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// The minute of a match in which something happened: "Müller (12.)", "1:0 (5.)", "in der 90.+3 Minute".
[[nodiscard]] Found MatchMinuteAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
