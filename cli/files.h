#pragma once

#include <string>

namespace lorelin::cli {

// The text of a file, of a pipe that has a name, or of standard input ("-"); decoded, with "\n" line ends.
// Throws Failure with NoInput, and Interruption while it waits.
[[nodiscard]] std::string ReadText(const std::string& input);
// Throws Failure with NoInput for a blank text.
void RequireSpeakable(const std::string& text);

// Throws Failure unless a sound file can be written there: NoTarget when it cannot, Usage when `target` is
// the very file that `input` names, which would be lost. Leaves behind whatever was there before.
void RequireTarget(const std::string& target, const std::string& input);

}  // namespace lorelin::cli
