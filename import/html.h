#pragma once

#include <string_view>

#include "import/ImportRequest.h"
#include "import/ImportedDocument.h"

namespace lorelin {

// The document of a page's bytes; with `articleOnly` that of the article in it.
[[nodiscard]] ImportedDocument ReadHtml(std::string_view bytes, const ImportRequest& request);

// The same of a text in Markdown.
[[nodiscard]] ImportedDocument ReadMarkdown(std::string_view bytes);

}  // namespace lorelin
