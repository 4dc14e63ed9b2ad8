#include "import/readDocument.h"

#include "base/RuntimeError.h"

namespace lorelin {

ImportedDocument ReadDocument(const ImportRequest&, const ImportProgress&) {
  throw RuntimeError(ErrorNumber::InvalidFileFormat, "Dokumente dieses Formats kann Lorelin nicht öffnen.");
}

}  // namespace lorelin
