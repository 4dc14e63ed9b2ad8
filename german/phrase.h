#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace lorelin {

// What some tokens are in words.
struct Phrase {
  std::size_t end = 0;  // the token behind
  std::string words;
};

// A reading of the tokens from one on; nothing when they are not what is asked for.
using Found = std::optional<Phrase>;

}  // namespace lorelin
