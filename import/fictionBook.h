#pragma once

#include "import/ImportRequest.h"
#include "import/ImportedDocument.h"

namespace lorelin {

// A book in FictionBook 2, alone or as the only one of a zip archive. Notes are left out.
[[nodiscard]] ImportedDocument ReadFictionBook(const ImportRequest& request);
[[nodiscard]] ImportedDocument ReadZippedFictionBook(const ImportRequest& request);

}  // namespace lorelin
