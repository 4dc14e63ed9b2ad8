#pragma once

#include <vector>

#include "ports/DocumentInfo.h"
#include "richtext/RichText.h"

namespace lorelin {

// The headings of a text as its chapters. One without letters is none. Linear in the text. Pure.
[[nodiscard]] std::vector<Chapter> ChaptersOf(const RichText& text);

// Makes headings of the paragraphs that say the titles of these chapters, so that ChaptersOf finds them
// again.
void MarkHeadings(RichText& text, const std::vector<Chapter>& chapters);

}  // namespace lorelin
