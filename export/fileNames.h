#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lorelin {

// A title as the name of a file, without an ending, that every usual file system takes: without signs that
// one of them forbids, not too long, none of the names that Windows keeps for devices. Never "".
[[nodiscard]] std::string SafeFileName(std::string_view title);

// "03 Titel" for the third of twelve; `title` as it comes out of SafeFileName.
[[nodiscard]] std::string NumberedName(std::size_t number, std::size_t count, std::string_view title);

}  // namespace lorelin
