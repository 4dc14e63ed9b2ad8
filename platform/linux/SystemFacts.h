#pragma once

#include <filesystem>
#include <functional>

#include "ports/ProgramPaths.h"

namespace lorelin {

// What the choice of the program's folders depends on, besides the folders themselves.
struct SystemFacts {
  std::filesystem::path executable;
  std::filesystem::path home;             // of the user
  std::filesystem::path temporaryFolder;  // of the system
  // The variable as a path; empty when it is not set.
  std::function<std::filesystem::path(const char* name)> environment;
};

// FindProgramPaths under these circumstances. Creates and seeds the program folder; where the one that is due
// cannot be written, a private folder for this session takes its place.
[[nodiscard]] ProgramPaths ChooseProgramPaths(const SystemFacts& facts);

}  // namespace lorelin
