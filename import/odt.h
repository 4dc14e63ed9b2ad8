#pragma once

#include "import/ImportRequest.h"
#include "import/ImportedDocument.h"

namespace lorelin {

// A text document in the OpenDocument format, in an archive or as one flat file. Notes, remarks, tables of
// contents and what a tracked change deleted are left out.
[[nodiscard]] ImportedDocument ReadOdt(const ImportRequest& request);
[[nodiscard]] ImportedDocument ReadFlatOdt(const ImportRequest& request);

}  // namespace lorelin
