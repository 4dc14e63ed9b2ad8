#pragma once

#include "cli/options.h"

namespace lorelin::cli {

// Makes sound files of the inputs, several at a time, with a line of progress on a terminal. Names on
// standard error what did not become one, and goes on with the others; the code is that of the first failure.
// Throws Failure and Interruption; nothing half-written is left then.
[[nodiscard]] ExitCode SayIntoFiles(const Options& options);

// Prints the text that would be read aloud, before German voices spell it out.
[[nodiscard]] ExitCode PrintText(const Options& options);

}  // namespace lorelin::cli
