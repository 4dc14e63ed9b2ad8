#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// A number as lists show it. `kind` is a name that word processors use: "decimal", "lowerLetter",
// "upperLetter", "lowerRoman", "upperRoman"; any other is decimal.
[[nodiscard]] std::string ListNumber(int number, std::string_view kind);

}  // namespace lorelin
