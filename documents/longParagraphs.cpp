#include "documents/longParagraphs.h"

#include <algorithm>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr std::size_t kPiece = 4096;  // bytes; a key in it is answered at once
constexpr std::size_t kLookedForSentence = 512;

// The blank at which a piece that begins before `from` ends best: behind a sentence, or any.
std::size_t EndOfPiece(std::string_view text, std::size_t from) {
  const std::size_t sentence = text.substr(from, kLookedForSentence).find(". ");
  return sentence != std::string_view::npos ? from + sentence + 1 : text.find(' ', from);
}

// The last blank of a paragraph stays: nothing would follow it.
void Break(std::string& text, std::size_t begin, std::size_t end) {
  const std::string_view paragraph = std::string_view(text).substr(0, end);
  for (std::size_t at = EndOfPiece(paragraph, begin + kPiece); at < end - 1;) {
    text[at] = kPieceEnd;
    if (at + kPiece >= end) return;
    at = EndOfPiece(paragraph, at + kPiece);
  }
}

std::size_t EndOfParagraph(std::string_view text, std::size_t begin) {
  return std::min(text.find('\n', begin), text.size());
}

}  // namespace

bool IsShownAsItIs(std::string_view text) {
  if (text.find(kPieceEnd) != std::string_view::npos) return false;
  for (std::size_t begin = 0; begin + kLongestParagraph < text.size();) {
    const std::size_t end = EndOfParagraph(text, begin);
    if (end - begin > kLongestParagraph) return false;
    begin = end + 1;
  }
  return true;
}

std::string AsShown(std::string_view text) {
  std::string shown =
      text.find(kPieceEnd) != std::string_view::npos ? WithPlainLineEnds(text) : std::string(text);
  for (std::size_t begin = 0; begin + kLongestParagraph < shown.size();) {
    const std::size_t end = EndOfParagraph(shown, begin);
    if (end - begin > kLongestParagraph) Break(shown, begin, end);
    begin = end + 1;
  }
  return shown;
}

std::string AsWritten(std::string shown) {
  std::replace(shown.begin(), shown.end(), kPieceEnd, ' ');
  return shown;
}

}  // namespace lorelin
