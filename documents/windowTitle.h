#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// What stands in the main window's title: the document's name and the program's, and a mark in front while
// there is something to be saved.
[[nodiscard]] std::string WindowTitle(const std::string& documentName, bool modified);

// The title of a window without that mark; the title of another program as it is.
[[nodiscard]] std::string_view WithoutChangeMark(std::string_view title);

}  // namespace lorelin
