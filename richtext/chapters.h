#pragma once

#include <vector>

#include "ports/DocumentInfo.h"
#include "richtext/RichText.h"

namespace lorelin {

// The headings of a text as its chapters. One without letters is none. Linear in the text. Pure.
[[nodiscard]] std::vector<Chapter> ChaptersOf(const RichText& text);

}  // namespace lorelin
