#pragma once

#include <span>
#include <string>

#include "cli/options.h"

namespace lorelin::cli {

// The whole command-line program; `arguments` without its name.
[[nodiscard]] ExitCode Run(std::span<const std::string> arguments);

}  // namespace lorelin::cli
