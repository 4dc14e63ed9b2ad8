#pragma once

#include <string>
#include <string_view>

#include "ports/DocumentInfo.h"

namespace lorelin {

// The Markdown text without what is none: the block of facts at its beginning, from which title, author and
// language are taken; notes and their marks; attributes behind headings. Pure, standard library only.
[[nodiscard]] std::string PrepareMarkdown(std::string_view text, DocumentInfo& info);

}  // namespace lorelin
