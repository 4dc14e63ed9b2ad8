#pragma once

#include "import/ImportRequest.h"
#include "import/ImportedDocument.h"

namespace lorelin {

// A book in EPUB 2 or 3: its pages in the order of its spine, the chapters of its table of contents.
[[nodiscard]] ImportedDocument ReadEpub(const ImportRequest& request, const ImportProgress& progress);

}  // namespace lorelin
