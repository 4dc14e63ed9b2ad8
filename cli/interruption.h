#pragma once

#include <string>
#include <string_view>

namespace lorelin::cli {

// Thrown where the program may be left: by Ctrl+C, or because the system wants it to end.
struct Interruption {};

// Throws Interruption when one was noted.
void ThrowIfInterrupted();

// Asks on standard error and reads a line from standard input, without its end; "" at the end of the input.
// Throws Interruption.
[[nodiscard]] std::string AskOnTerminal(std::string_view question);

}  // namespace lorelin::cli
