#pragma once

#include <string_view>

#include "german/tokens.h"

namespace lorelin {

struct Picture {
  std::string_view name;  // in German; empty for one without a name, and for marks that only colour or join
  std::size_t end = 0;    // the token behind
};

// The emoji at the token, all of its parts; end is 0 when there is none.
[[nodiscard]] Picture PictureAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
