#pragma once

#include <vector>

#include "import/pdfPageLines.h"

namespace lorelin {

// The lines of a page in the order in which they are read: columns of text one after the other, everything
// else from the top down, with what stands at one height as one line; the rows of tables are marked.
[[nodiscard]] std::vector<PdfLine> InReadingOrder(std::vector<PdfLine> lines);

}  // namespace lorelin
