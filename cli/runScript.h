#pragma once

#include "cli/options.h"

namespace lorelin::cli {

// Runs one task script without a window, in the working folder, and waits until what it speaks has ended.
// Throws Failure and Interruption.
[[nodiscard]] ExitCode RunScript(const Options& options);

}  // namespace lorelin::cli
