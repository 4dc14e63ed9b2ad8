#pragma once

#include "import/ImportRequest.h"
#include "import/ImportedDocument.h"

namespace lorelin {

// The document of a file. What kind of file it is is told by its ending and, where that says nothing or
// something else, by its first bytes. Throws RuntimeError with a sentence for people.
[[nodiscard]] ImportedDocument ReadDocument(const ImportRequest& request, const ImportProgress& progress);

}  // namespace lorelin
