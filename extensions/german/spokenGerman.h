#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lorelin {

// The user's own words: what stands in the text, and how it is spoken; the longest comes first.
using WordList = std::vector<std::pair<std::string, std::string>>;

// Lines "Kürzel = Sprechweise"; empty ones and those that begin with "#" mean nothing, nor do others.
[[nodiscard]] WordList ParseWordList(std::string_view text);

// The text as a person would read it: abbreviations, dates, ordinals, times, sums of money, units, telephone
// numbers and Roman numerals in words. Everything else stays as it is, byte for byte, whatever it is. Linear
// in the size. Pure.
[[nodiscard]] std::string SpokenGerman(std::string_view text, const WordList& own = {});

}  // namespace lorelin
