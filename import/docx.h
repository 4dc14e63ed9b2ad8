#pragma once

#include "import/ImportRequest.h"
#include "import/ImportedDocument.h"

namespace lorelin {

// A text document in Office Open XML (ECMA-376). Notes, comments, tables of contents and what a tracked
// change deleted are left out.
[[nodiscard]] ImportedDocument ReadDocx(const ImportRequest& request);

}  // namespace lorelin
