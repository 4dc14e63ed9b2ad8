#pragma once

#include <string>
#include <vector>

namespace lorelin {

// The arguments of the process in UTF-8, its own name left out. From here on standard output takes bytes as
// they are, and whoever no longer reads them ends the writing, not the process.
[[nodiscard]] std::vector<std::string> StartProcess(int argc, char** argv);

}  // namespace lorelin
