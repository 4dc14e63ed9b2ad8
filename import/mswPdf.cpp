#include "import/importErrors.h"
#include "import/pdf.h"

namespace lorelin {

// The library that reads them is not part of the program for Windows.
ImportedDocument ReadPdf(const ImportRequest&, const ImportProgress&) {
  throw ImportError(
      "PDF-Dokumente kann Lorelin unter Windows nicht öffnen. Bitte öffnen Sie das Dokument in einem anderen "
      "Programm, "
      "kopieren Sie seinen Text und fügen Sie ihn hier ein.");
}

}  // namespace lorelin
