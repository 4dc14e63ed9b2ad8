#include "engine/wordMarks.h"

#include <algorithm>

#include "base/textEncoding.h"
#include "engine/speakableText.h"

namespace lorelin::engine {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool IsAsciiSign(char c) {
  constexpr std::string_view kSigns = ".,;:!?\"'()[]{}<>-_*/\\|~`^";
  return kSigns.find(c) != std::string_view::npos;
}

// Quotes, dashes, dots and brackets are not spoken; signs like "%" and "&" are.
bool IsSilent(std::string_view character) {
  if (character.size() == 1) return IsAsciiSign(character[0]);
  if (character == "«" || character == "»" || character == "¿" || character == "¡" || character == "·")
    return true;
  if (character == "\xC2\xA0" || character == "\xC2\xAD") return true;
  // General Punctuation: U+2000 to U+206F, but for per mille and the like.
  if (character.size() != 3 || character[0] != '\xE2') return false;
  const auto second = static_cast<unsigned char>(character[1]);
  return second == 0x80 && character != "‰" && character != "‱";
}

std::string_view CharacterInFront(std::string_view text) {
  return text.substr(0, std::max<std::size_t>(Utf8Length(text), 1));
}

}  // namespace

WordMarker::WordMarker(std::string_view piece) {
  std::size_t character = 0;
  while (!piece.empty()) {
    std::size_t size = 0;
    while (size < piece.size() && !IsBlank(piece[size])) ++size;
    const std::string_view token = piece.substr(0, size);
    if (size > 0) AddWord(token, character);
    character += CharacterCount(token);
    piece.remove_prefix(size);
    for (; !piece.empty() && IsBlank(piece[0]); piece.remove_prefix(1)) ++character;
  }
}

void WordMarker::AddWord(std::string_view token, std::size_t begin) {
  Word word{begin, begin, begin, begin};
  bool spoken = false;
  for (; !token.empty(); ++word.behind) {
    const std::string_view character = CharacterInFront(token);
    const bool silent = IsSilent(character);
    if (!silent && !spoken) word.begin = word.behind;
    if (!silent) word.end = word.behind + 1;
    spoken = spoken || !silent;
    token.remove_prefix(character.size());
  }
  if (spoken) words_.push_back(word);
}

void WordMarker::Event(std::size_t character, std::uint64_t sample, const Take& take) {
  const auto found = std::partition_point(words_.begin(), words_.end(),
                                          [&](const Word& word) { return word.behind <= character; });
  if (found == words_.end()) return;
  const auto index = static_cast<std::size_t>(found - words_.begin());
  if (index >= next_ && found->front <= character) MoveTo(index, sample, take);
}

void WordMarker::MoveTo(std::size_t word, std::uint64_t sample, const Take& take) {
  const std::size_t first = next_ == 0 ? 0 : next_ - 1;  // the one that takes part of the time, too
  std::size_t all = 0;
  for (std::size_t i = first; i < word; ++i) all += words_[i].end - words_[i].begin;
  const std::uint64_t time = std::max(sample, lastSample_) - lastSample_;
  std::size_t passed = 0;
  for (std::size_t i = first; i < word; ++i) {
    if (i >= next_) take({lastSample_ + time * passed / all, words_[i].begin, words_[i].end});
    passed += words_[i].end - words_[i].begin;
  }
  lastSample_ += time;
  next_ = word;
  if (word >= words_.size()) return;
  take({lastSample_, words_[word].begin, words_[word].end});
  ++next_;
}

void WordMarker::End(std::uint64_t sample, const Take& take) {
  MoveTo(words_.size(), sample, take);
}

DroppedCharacters::DroppedCharacters(std::string_view text) {
  std::size_t speakable = 0;
  while (!text.empty()) {
    const std::string_view character = CharacterInFront(text);
    if (SpeakableText(character).empty()) {
      before_.push_back(speakable);
    } else {
      ++speakable;
    }
    text.remove_prefix(character.size());
  }
}

std::size_t DroppedCharacters::Given(std::size_t speakable) const {
  const auto behind = std::upper_bound(before_.begin(), before_.end(), speakable);
  return speakable + static_cast<std::size_t>(behind - before_.begin());
}

}  // namespace lorelin::engine
