#pragma once

#include <cstdint>

namespace lorelin {

// 0xRRGGBB.
struct MarkColour {
  std::uint32_t background = 0;
  std::uint32_t foreground = 0;
};

// In what the word and the sentence are marked that are read. Whatever colours the document has, what is
// marked can be read: both have colours for ground and letters, with a contrast of 4.5 at least.
struct MarkColours {
  MarkColour word;
  MarkColour sentence;
};

[[nodiscard]] constexpr MarkColours MarkColoursFor(bool darkTheme) {
  if (darkTheme) {
    return {.word = {.background = 0xFFC233, .foreground = 0x000000},
            .sentence = {.background = 0x4A4220, .foreground = 0xFFF6D6}};
  }
  return {.word = {.background = 0xFFB000, .foreground = 0x000000},
          .sentence = {.background = 0xFFF1B8, .foreground = 0x1A1A1A}};
}

}  // namespace lorelin
