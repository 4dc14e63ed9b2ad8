#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace lorelin {

// An entry of a document's outline.
struct PdfBookmark {
  std::string title;
  int level = 1;
  std::size_t page = 0;  // from 0
  double top = 0;        // in points from the page's upper edge; 0 where only the page is told
};

// The outline of the file, empty when there is none or it cannot be read.
[[nodiscard]] std::vector<PdfBookmark> ReadPdfOutline(const std::string& path);

// Whether any of these pages (from 0) holds a picture.
[[nodiscard]] bool HasPictures(const std::string& path, const std::vector<std::size_t>& pages);

}  // namespace lorelin
