#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lorelin {

// A place where the spoken text differs from the written one; both ends in code points, the second exclusive.
// A byte that belongs to no character counts as one.
struct SpokenRun {
  std::size_t spokenBegin = 0;
  std::size_t spokenEnd = 0;
  std::size_t writtenBegin = 0;
  std::size_t writtenEnd = 0;

  bool operator==(const SpokenRun&) const = default;
};

// A text as it is spoken, in UTF-8. The runs come in order and never touch each other's insides; whatever
// lies between them is the same in both texts, character for character.
struct SpokenText {
  std::string text;
  std::vector<SpokenRun> runs;
};

// The characters of a text: its code points, and every byte that belongs to none.
[[nodiscard]] std::size_t CountCharacters(std::string_view text);

// The runs from the last text to the first, when `first` was made of a text and `second` of first.text.
[[nodiscard]] std::vector<SpokenRun> JoinRuns(const std::vector<SpokenRun>& first,
                                              const std::vector<SpokenRun>& second);

}  // namespace lorelin
