#pragma once

#include <string_view>

namespace lorelin {

// Answers "--help" and "--version", for which neither a display nor a toolkit is needed. Whether that was
// what the program was started for.
[[nodiscard]] bool AnswerOnConsole(int argc, const char* const* argv, std::string_view help);

}  // namespace lorelin
