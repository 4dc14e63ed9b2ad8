#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// The name as registry names are compared: every character in upper case by its simple mapping, so that the
// number of characters stays the same. Bytes that are no UTF-8 stay as they are.
[[nodiscard]] std::string FoldCase(std::string_view name);

}  // namespace lorelin
