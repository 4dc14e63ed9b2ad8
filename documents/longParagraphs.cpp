#include "documents/longParagraphs.h"

#include <algorithm>
#include <utility>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr std::size_t kPiece = 4096;  // bytes; a key in it is answered at once
constexpr std::size_t kLookedForSentence = 512;

// The blank at which a piece ends best from there on, behind a sentence or any; else the character there.
std::size_t EndOfPiece(std::string_view text, std::size_t from) {
  const std::size_t sentence = text.substr(from, kLookedForSentence).find(". ");
  if (sentence != std::string_view::npos) return from + sentence + 1;
  const std::size_t blank = text.substr(from, kPiece).find(' ');
  if (blank != std::string_view::npos) return from + blank;
  while ((static_cast<unsigned char>(text[from]) & 0xC0U) == 0x80U) ++from;
  return from;
}

class Pieces {
 public:
  // The last character stays: nothing would follow it.
  void Add(std::string_view paragraph) {
    while (paragraph.size() > 2 * kPiece) {
      const std::size_t end = EndOfPiece(paragraph, kPiece);
      const std::size_t length = std::max<std::size_t>(Utf8Length(paragraph.substr(end)), 1);
      if (end + length >= paragraph.size()) break;
      shown_.text.append(paragraph.substr(0, end));
      Hide(paragraph.substr(end, length));
      paragraph.remove_prefix(end + length);
    }
    shown_.text.append(paragraph);
  }
  void AddWhole(std::string_view text) { shown_.text.append(text); }

  ShownText Take() { return std::move(shown_); }

 private:
  void Hide(std::string_view character) {
    if (character != " ") {
      characters_ += CharacterCount(std::string_view(shown_.text).substr(counted_));
      counted_ = shown_.text.size();
      shown_.hidden.push_back({characters_, std::string(character)});
    }
    shown_.text += kPieceEnd;
  }

  ShownText shown_;
  std::size_t counted_ = 0;  // bytes
  std::size_t characters_ = 0;
};

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

ShownText AsShown(std::string_view text) {
  const std::string plain = text.find(kPieceEnd) != std::string_view::npos ? WithPlainLineEnds(text) : "";
  const std::string_view whole = plain.empty() ? text : plain;
  Pieces pieces;
  for (std::size_t begin = 0; begin < whole.size();) {
    const std::size_t end = EndOfParagraph(whole, begin);
    const std::string_view paragraph = whole.substr(begin, end - begin);
    paragraph.size() > kLongestParagraph ? pieces.Add(paragraph) : pieces.AddWhole(paragraph);
    if (end < whole.size()) pieces.AddWhole("\n");
    begin = end + 1;
  }
  return pieces.Take();
}

std::string WithBlanks(std::string shown) {
  std::replace(shown.begin(), shown.end(), kPieceEnd, ' ');
  return shown;
}

}  // namespace lorelin
