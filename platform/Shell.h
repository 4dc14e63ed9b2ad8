#pragma once

#include <string>

namespace lorelin {

// Port: the desktop's shell. Nothing passes through a command interpreter.
class Shell {
 public:
  virtual ~Shell() = default;
  // Shows the folder in the system's file manager and returns at once; false when none could be started.
  virtual bool OpenFolder(const std::string& folder) = 0;
};

}  // namespace lorelin
