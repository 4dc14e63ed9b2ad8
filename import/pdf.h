#pragma once

#include "import/ImportRequest.h"
#include "import/ImportedDocument.h"

namespace lorelin {

// A document in PDF. Pages that hold pictures of text only are told by `hasPages`; with `recognisePages` the
// system's text recognition reads them.
[[nodiscard]] ImportedDocument ReadPdf(const ImportRequest& request, const ImportProgress& progress);

}  // namespace lorelin
