#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "german/SpokenText.h"

namespace lorelin {

// The user's rules of the kind "skip what stands in square brackets": a pattern and what is spoken in its place.
class TextRules {
 public:
  [[nodiscard]] bool IsEmpty() const { return true; }
  [[nodiscard]] SpokenText Apply(std::string_view text) const { return {std::string(text), {}}; }
};

}  // namespace lorelin
