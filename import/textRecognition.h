#pragma once

#include <string>
#include <vector>

#include "import/pdfLines.h"

namespace lorelin {

// A picture of a page, in shades of grey from the upper left corner on, one byte for each point.
struct PagePicture {
  std::size_t width = 0;
  std::size_t height = 0;
  double perInch = 300;
  std::string grey;
};

// The words that Tesseract reads in the picture, in points. Throws RuntimeError with a sentence for people
// where it is not installed.
[[nodiscard]] std::vector<PdfWord> RecogniseText(const PagePicture& picture);

// The words of its table of results.
[[nodiscard]] std::vector<PdfWord> ReadRecognised(std::string_view table, double perInch);

}  // namespace lorelin
