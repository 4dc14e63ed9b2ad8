#pragma once

#include <string_view>

namespace lorelin {

// Whether the whole name is what the pattern says, in which "*" stands for any characters and "?" for one. A
// byte of a name that is no UTF-8 counts as one character. The time is at most the product of the sizes.
[[nodiscard]] bool MatchesWildcards(std::string_view pattern, std::string_view name);

}  // namespace lorelin
