#pragma once

#include <iosfwd>
#include <span>
#include <string>

#include "cli/options.h"
#include "ports/FileWriter.h"
#include "ports/Registry.h"

namespace lorelin::cli {

// "reg": shows and changes the registry. `words` are what to do (query, add, delete, export, import) and with
// what. Throws UsageError for words that mean nothing, Failure for everything that was not done.
[[nodiscard]] ExitCode UseRegistry(std::span<const std::string> words, Registry& registry, FileWriter& files,
                                   std::ostream& out);

}  // namespace lorelin::cli
