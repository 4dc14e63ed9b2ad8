#pragma once

#include "cli/options.h"
#include "ports/DirectSS.h"

namespace lorelin::cli {

// The options with the number of the voice that they name. A part of a name is enough where only one voice
// has it, in whatever case. Throws Failure with Usage when there is no such voice, or more than one.
[[nodiscard]] Options WithChosenVoice(Options options, DirectSS& engine);

}  // namespace lorelin::cli
