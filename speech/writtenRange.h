#pragma once

#include <cstddef>
#include <vector>

#include "german/SpokenText.h"

namespace lorelin {

struct CharacterRange {
  std::size_t begin = 0;
  std::size_t end = 0;

  bool operator==(const CharacterRange&) const = default;
};

// What is written where this is spoken. A part of a run stands for the whole of it; both in characters.
[[nodiscard]] CharacterRange WrittenRange(const std::vector<SpokenRun>& runs, CharacterRange spoken);

}  // namespace lorelin
