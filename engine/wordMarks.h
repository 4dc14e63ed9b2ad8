#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace lorelin::engine {

// A word of a text, in characters, and the sample that it begins with.
struct WordMark {
  std::uint64_t sample = 0;
  std::size_t begin = 0;
  std::size_t end = 0;

  bool operator==(const WordMark&) const = default;
};

// Turns the library's word events into the words of a piece of text. The library counts wrongly in numbers,
// compounds and quotes, tells some words more than once and others not at all; so what it tells only moves
// on to the word that stands there, never back. Words that it passes over get their share of the time
// between the two around them: every word comes, in order.
class WordMarker {
 public:
  using Take = std::function<void(const WordMark&)>;

  // The piece is valid UTF-8 and is looked at only here.
  explicit WordMarker(std::string_view piece);

  // The library tells that something at this character of the piece begins with this sample.
  void Event(std::size_t character, std::uint64_t sample, const Take& take);
  // The piece ends with this sample.
  void End(std::uint64_t sample, const Take& take);

 private:
  struct Word {
    std::size_t front = 0;  // with the signs that hang on
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t behind = 0;
  };

  void AddWord(std::string_view token, std::size_t begin);
  // All words up to the one that begins with the sample.
  void MoveTo(std::size_t word, std::uint64_t sample, const Take& take);

  std::vector<Word> words_;
  std::size_t next_ = 0;  // the first that was not told
  std::uint64_t lastSample_ = 0;
};

// Where characters of the text stand that is spoken, when the library does not get all of it: the places of
// those that it does not get.
class DroppedCharacters {
 public:
  explicit DroppedCharacters(std::string_view text);
  // The place in the text of a character of what the library gets.
  [[nodiscard]] std::size_t Given(std::size_t speakable) const;

 private:
  std::vector<std::size_t> before_;  // as counted in what the library gets
};

}  // namespace lorelin::engine
