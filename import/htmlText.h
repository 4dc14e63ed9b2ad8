#pragma once

#include <string>
#include <string_view>

#include "import/DocumentBuilder.h"
#include "import/MarkupTree.h"

namespace lorelin {

// Adds what a reader of the page sees of the element and what lies in it: headings, lists, tables row by row,
// the texts of links. Left out: scripts, hidden elements, notes and their marks, page numbers, readings above
// characters. Names of places get `anchorPrefix` before them.
void AddHtml(DocumentBuilder& builder, MarkupTree::Node element, const std::string& anchorPrefix = {});

// Whether the element is not meant to be seen or heard.
[[nodiscard]] bool IsHiddenHtml(MarkupTree::Node element);

// Whether a list of words with blanks between them has the word; case does not count.
[[nodiscard]] bool HasWord(std::string_view list, std::string_view word);

}  // namespace lorelin
