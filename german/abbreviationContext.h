#pragma once

#include <cstddef>

#include "german/abbreviationTable.h"
#include "german/tokens.h"

namespace lorelin {

// Whether what stands around the abbreviation from token `i` to before `end`, and what its text speaks of, is
// what this meaning of it asks for.
[[nodiscard]] bool FitsAround(const Abbreviation& one, const Tokens& tokens, std::size_t i, std::size_t end);

}  // namespace lorelin
