#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lorelin {

// Bytes in an encoding of this name (in lower case), in UTF-8; what fits no character is replaced by U+FFFD.
// Nothing when the system does not know the name.
[[nodiscard]] std::optional<std::string> DecodedBySystem(std::string_view bytes, const std::string& encoding);

}  // namespace lorelin
