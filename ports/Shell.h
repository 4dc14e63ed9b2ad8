#pragma once

#include <string>

namespace lorelin {

// How a program's window is to appear; the numbers are those of the Windows shell (SW_HIDE, SW_SHOWNORMAL).
enum class ShowCommand { Hidden = 0, Normal = 1 };

// Port: the desktop's shell. Nothing passes through a command interpreter.
class Shell {
 public:
  virtual ~Shell() = default;
  // Shows the folder in the system's file manager and returns at once; false when none could be started.
  virtual bool OpenFolder(const std::string& folder) = 0;
  // Opens a web address in the user's browser or starts a program, named as on Windows ("XMGR.exe"), that
  // came with this one, and returns at once; false when nothing could be started. `folder` is the program's
  // working directory, "" for any.
  virtual bool Open(const std::string& item, const std::string& folder, ShowCommand show) = 0;
};

}  // namespace lorelin
