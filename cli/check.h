#pragma once

#include <iosfwd>
#include <span>
#include <string>

#include "cli/options.h"

namespace lorelin::cli {

// Names what is doubtful in task scripts, one line a finding. NotToTheEnd when there is an error among them,
// NoInput when a file cannot be read.
[[nodiscard]] ExitCode CheckScripts(std::span<const std::string> files, std::ostream& out, std::ostream& err);

}  // namespace lorelin::cli
