#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lorelin {

// Text controls lay out a whole paragraph at once, and beyond some hundred thousand characters on one line
// they draw nonsense. A paragraph that is too long is shown in pieces: in the place of a blank now and then
// stands a mark that ends the line. Every character keeps its place and its number of bytes. Pure.
inline constexpr char kPieceEnd = '\r';

inline constexpr std::size_t kLongestParagraph = 16384;  // bytes that are shown in one piece

// The text as a control is to show it: long paragraphs in pieces, and no mark but ours. Foreign line ends
// (CR LF, CR) become "\n".
[[nodiscard]] std::string AsShown(std::string_view text);
// Whether AsShown would change anything.
[[nodiscard]] bool IsShownAsItIs(std::string_view text);

// The text that AsShown was given.
[[nodiscard]] std::string AsWritten(std::string shown);

}  // namespace lorelin
