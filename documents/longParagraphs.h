#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lorelin {

// Text controls lay out a whole paragraph at once, and beyond some hundred thousand characters on one line
// they draw nonsense. A paragraph that is too long is shown in pieces: in the place of a blank now and then
// stands a mark that ends the line. Every character keeps its place. Where there are no blanks, as in no
// language's text, the mark hides another character. Pure.
inline constexpr char kPieceEnd = '\r';

inline constexpr std::size_t kLongestParagraph = 16384;  // bytes that are shown in one piece

struct HiddenCharacter {
  std::size_t position = 0;  // in characters
  std::string character;     // that is no blank
};

struct ShownText {
  std::string text;
  std::vector<HiddenCharacter> hidden;
};

// The well-formed text as a control is to show it: long paragraphs in pieces, and no mark but ours. Foreign
// line ends (CR LF, CR) become "\n".
[[nodiscard]] ShownText AsShown(std::string_view text);
// Whether AsShown would change anything.
[[nodiscard]] bool IsShownAsItIs(std::string_view text);

// A blank for every mark: the text that AsShown was given, when it hides nothing else.
[[nodiscard]] std::string WithBlanks(std::string shown);

}  // namespace lorelin
