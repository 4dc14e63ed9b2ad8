#pragma once

#include <string>

namespace lorelin {

// The text that was selected last in any program, where the system keeps that beside the clipboard; else "".
// Waits for the program that has it, a second at most; events that draw are let in meanwhile.
[[nodiscard]] std::string PrimarySelection();

}  // namespace lorelin
