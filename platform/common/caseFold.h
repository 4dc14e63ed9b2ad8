#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// The name as registry names are compared: every character in upper case by its simple mapping, so that the
// number of characters stays the same. As in Windows a small letter counts only where it is the small letter
// of its capital: "ı" stays apart from "i", "µ" from "μ", "ß" from "ss". Bytes that are no UTF-8 stay as they
// are.
[[nodiscard]] std::string FoldCase(std::string_view name);

}  // namespace lorelin
