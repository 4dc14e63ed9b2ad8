#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lorelin {

// A place of the document by which it is found again after the text was edited.
struct TextAnchor {
  std::size_t character = 0;
  std::string words;  // what stood there; "" behind the end
};

// The place, with the words that stand there.
[[nodiscard]] TextAnchor AnchorAt(std::string_view text, std::size_t character);
// Where those words stand now, the nearest to the old place; that place when they are gone. In characters.
[[nodiscard]] std::size_t PlaceOf(const TextAnchor& anchor, std::string_view text);

}  // namespace lorelin
