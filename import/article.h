#pragma once

#include <string_view>

#include "import/DocumentBuilder.h"
#include "import/MarkupTree.h"

namespace lorelin {

// Adds the article of a page, its title first, and leaves out what surrounds it: menus, advertisements,
// lists of links, remarks of readers. The whole page where no article is found.
void AddArticle(DocumentBuilder& builder, MarkupTree::Node page, std::string_view declaredTitle);

}  // namespace lorelin
