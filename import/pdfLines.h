#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace lorelin {

// Text of pages that knows only places, put together as it is read. Pure, standard library only. Places are
// in points from the page's upper left corner.

struct PdfWord {
  std::string text;  // UTF-8
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  double size = 0;  // of the letters
  bool bold = false;
  bool italic = false;
  bool spaceAfter = true;
};

struct PdfPage {
  double width = 0;
  double height = 0;
  std::vector<PdfWord> words;  // columns one after the other, each from line to line
};

// A piece of a paragraph in one look.
struct PdfPiece {
  std::string text;
  bool bold = false;
  bool italic = false;

  bool operator==(const PdfPiece&) const = default;
};

struct PdfParagraph {
  std::vector<PdfPiece> pieces;
  std::size_t page = 0;  // from 0, of its first line
  double top = 0;
  double bottom = 0;  // of its first line
  double size = 0;
  std::size_t lines = 0;
  bool item = false;  // of a list
  bool row = false;   // of a table
  int heading = 0;    // 1 for the outermost; 0 for none

  [[nodiscard]] std::string Text() const;
};

// The paragraphs of a document. What stands at the same height above or below the text of most pages is left
// out: running heads and feet, numbers of pages. Lines become paragraphs, across columns and pages; a word
// that was divided at a line's end is whole again ("E-Mail" and "Nord- und" keep their hyphens).
[[nodiscard]] std::vector<PdfParagraph> AssemblePdf(const std::vector<PdfPage>& pages);

}  // namespace lorelin
