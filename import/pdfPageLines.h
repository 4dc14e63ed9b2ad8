#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "import/pdfLines.h"

namespace lorelin {

struct PdfLine {
  std::vector<PdfWord> words;
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  double size = 0;  // of most of its letters
  std::size_t page = 0;
  bool row = false;  // of a table

  [[nodiscard]] std::string Text() const;
  [[nodiscard]] bool AllBold() const;
};

// The lines of a page in the order of its words, without the raised numbers that point to notes and without
// the notes at its foot that these point to.
[[nodiscard]] std::vector<PdfLine> LinesOf(const PdfPage& page, std::size_t number);

// Takes out of each page's lines what stands at the same height above or below the text of most pages.
void DropRunningLines(std::vector<std::vector<PdfLine>>& pages, const std::vector<PdfPage>& sizes);

// Whether a word is what stands before an item of a list: a bullet; "1.", "12)", "a)".
[[nodiscard]] bool IsBullet(const std::string& word);
[[nodiscard]] bool IsItemMark(const std::string& word);

// The middle one of the values, 0 for none.
[[nodiscard]] double Median(std::vector<double> values);

}  // namespace lorelin
