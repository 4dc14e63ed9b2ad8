#pragma once

#include <string_view>

namespace lorelin {

// Words that people cut short in letters, bills, leaflets and advertisements, with blanks between them; of
// two that are cut alike the more common one stands first.

// Nouns, behind a stroke the plural where it is another form.
[[nodiscard]] std::string_view CutNouns();
// Adjectives without their ending.
[[nodiscard]] std::string_view CutAdjectives();
// Adverbs and verbs.
[[nodiscard]] std::string_view CutFixedWords();

template <typename Use>
void ForEachWord(std::string_view list, Use use) {
  for (std::size_t at = 0; at < list.size();) {
    std::size_t end = list.find(' ', at);
    if (end == std::string_view::npos) end = list.size();
    if (end > at) use(list.substr(at, end - at));
    at = end + 1;
  }
}

}  // namespace lorelin
