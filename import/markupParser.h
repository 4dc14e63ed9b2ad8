#pragma once

#include <string_view>

#include "import/MarkupTree.h"

namespace lorelin {

// Both are lenient: of a file that is damaged they give what comes before, and go on where they can. Neither
// reads another file, and the only entities that count are those of the language itself. A file
// in XML that is not well-formed is marked as damaged.

// Bytes in the encoding that the file declares. Names of known vocabularies carry their customary prefixes
// ("w:p", "dc:title"), whatever the file calls them, all others none.
[[nodiscard]] MarkupTree ParseXml(std::string_view bytes);

// A text in UTF-8. Names are in lower case.
[[nodiscard]] MarkupTree ParseHtml(std::string_view text);

}  // namespace lorelin
