#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lorelin::engine {

// The text as the library may have it: valid UTF-8 without control characters other than tab and line ends
// (byte 1 begins a command there, byte 0 ends the text). What is no UTF-8 becomes U+FFFD.
[[nodiscard]] std::string SpeakableText(std::string_view text);

// Bytes of the piece at the front of `text` that goes to the library in one call; 0 only for an empty text.
// Pieces end where speech pauses anyway: behind a paragraph, or behind a sentence once the piece is long. A
// run of many full stops without such an end is cut by force, because libespeak-ng 1.51 writes beyond a
// buffer at the 85th full stop that ends no sentence.
[[nodiscard]] std::size_t NextPiece(std::string_view text);

// Bytes of the sentence at the front of `text`, the blanks behind it included; 0 only for an empty text. A
// long one is cut behind a comma, then at a blank, in the end anywhere between two characters.
[[nodiscard]] std::size_t NextSentence(std::string_view text);

}  // namespace lorelin::engine
