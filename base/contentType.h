#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// The name of the encoding in a header like "text/html; charset=ISO-8859-1", in lower case; "" for none, or
// for one that can be no name of an encoding.
[[nodiscard]] std::string CharsetOfContentType(std::string_view contentType);

}  // namespace lorelin
