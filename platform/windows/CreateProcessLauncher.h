#pragma once

#include <string>
#include <vector>

#include "ports/ProgramLauncher.h"

namespace lorelin {

// Starts programs through CreateProcess. A batch file is read by the command interpreter, which would
// interpret its arguments as well: one with arguments is refused (70).
class CreateProcessLauncher final : public ProgramLauncher {
 public:
  void Start(const std::vector<std::string>& arguments) override;
};

// The arguments as one command line from which a program reads them back ("Parsing C command-line arguments",
// Microsoft C language reference). UTF-8.
[[nodiscard]] std::string CommandLineOf(const std::vector<std::string>& arguments);

}  // namespace lorelin
