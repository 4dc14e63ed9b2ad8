#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "import/MarkupTree.h"

namespace lorelin {

// What a style of a word processor's document means for its text.
struct DocxStyle {
  std::string name;  // lower case; "heading 1", "title", "toc 2"
  std::string basedOn;
  int outlineLevel = 0;  // 1 for the outermost heading, 0 for none
  bool bold = false;
  bool italic = false;
  bool hidden = false;
  std::string list;  // the list that its paragraphs are items of
  int listLevel = 0;
};

using DocxStyles = std::map<std::string, DocxStyle, std::less<>>;

// Each with what it has from those that it is based on.
[[nodiscard]] DocxStyles ReadDocxStyles(std::string_view bytes);

// Whether an element like w:b is there and not turned off.
[[nodiscard]] bool IsOn(MarkupTree::Node properties, std::string_view name);

// The lists of a document: counts their items and says what stands before each.
class DocxLists {
 public:
  explicit DocxLists(std::string_view bytes);
  // The mark of the next item, "" for one without.
  [[nodiscard]] std::string NextMark(const std::string& list, int level);

 private:
  struct Level {
    std::string kind = "decimal";
    std::string text;
    int start = 1;
  };
  using Levels = std::map<int, Level>;

  [[nodiscard]] std::string Number(const Levels& levels, const std::vector<int>& counts, int level) const;

  std::map<std::string, Levels, std::less<>> kinds_;             // by the number of the list's kind
  std::map<std::string, std::string, std::less<>> kindOf_;       // by that of the list
  std::map<std::string, std::vector<int>, std::less<>> counts_;  // by kind; 0 before the first item
};

}  // namespace lorelin
