#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "german/tokens.h"

namespace lorelin {

struct TextRange {
  std::size_t begin = 0;  // bytes
  std::size_t end = 0;

  bool operator==(const TextRange&) const = default;
};

// Where the sentence that begins at `begin` ends, the blanks and ends of lines behind it included; the size
// of the text for the last one. Points of abbreviations, ordinals and dates end none; an empty line always
// does. The time depends on the sentence alone, and the answer on what stands from `begin` to a few words
// behind the end: a text can be taken sentence by sentence. A sentence of very many words is cut at a gap.
[[nodiscard]] std::size_t SentenceEnd(std::string_view text, std::size_t begin);

// All sentences of a text, one behind the other: together they are the whole text.
[[nodiscard]] std::vector<TextRange> Sentences(std::string_view text);

// The sentence that begins at `begin`, in tokens.
[[nodiscard]] Tokens SentenceAt(std::string_view text, std::size_t begin);

}  // namespace lorelin
