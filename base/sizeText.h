#pragma once

#include <cstdint>
#include <string>

namespace lorelin {

// The size of a file as a person reads it: "4,2 MB", "63 MB"; a megabyte is a million bytes.
[[nodiscard]] std::string SizeText(std::uintmax_t bytes);

}  // namespace lorelin
