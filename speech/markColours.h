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

// On a ground of this colour, from which both can be told.
[[nodiscard]] MarkColours MarkColoursOn(std::uint32_t ground);

// The same where letters keep their colour and only the ground behind them is mixed: on a light one it
// becomes no lighter, on a dark one no darker. The word's ground has all of the sentence's in it.
[[nodiscard]] constexpr MarkColours GroundColoursFor(bool darkTheme) {
  if (!darkTheme) {
    return {.word = {.background = 0xFFB000, .foreground = 0x000000},
            .sentence = {.background = 0xFFF1B8, .foreground = 0x1A1A1A}};
  }
  return {.word = {.background = 0x7F2F10, .foreground = 0xFFFFFF},
          .sentence = {.background = 0x332B10, .foreground = 0xFFFFFF}};
}

}  // namespace lorelin
