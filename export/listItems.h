#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "export/spokenSentences.h"

namespace lorelin {

// The lines of a text that begin as items of a list, as places of their first characters, of which the text's
// own is at `first`: with a bullet, or with numbers that follow each other from line to line.
[[nodiscard]] std::vector<std::size_t> LinesOfLists(std::string_view text, std::size_t first);

// Makes items of the paragraphs that begin as those of a list: with a bullet, or with numbers that follow
// each other. Their marks leave the texts, for whoever shows the list draws them; their sounds stay.
void FindListItems(std::vector<SpokenParagraph>& paragraphs);

}  // namespace lorelin
