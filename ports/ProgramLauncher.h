#pragma once

#include <string>
#include <vector>

namespace lorelin {

// Port: starting programs. Nothing passes through a command interpreter.
class ProgramLauncher {
 public:
  virtual ~ProgramLauncher() = default;
  // Starts the program, looked up in the search path when it names no folder, and returns at once. Its output
  // goes nowhere and it outlives Lorelin. Throws RuntimeError: 53 when there is no such program, 70 when it
  // may not be run, 5 when it cannot be started for another reason or `arguments` is empty.
  virtual void Start(const std::vector<std::string>& arguments) = 0;
};

}  // namespace lorelin
