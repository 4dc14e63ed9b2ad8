#pragma once

#include <string>

namespace lorelin {

// Where the program's files lie. Folders carry no trailing separator; paths are absolute, UTF-8.
struct ProgramPaths {
  std::string programFolder;   // holds scripts, temp, hypertext
  std::string programFile;     // the running executable
  std::string engineFile;      // lorelin-engine
  std::string settingsFolder;  // files of the user's own that are no documents; it need not exist
  std::string registryFile;    // settings store; "" where the system has a registry of its own
  std::string logFile;
  std::string scriptLogFile;  // of what task scripts did
  std::string cacheFolder;    // what can be made again
  std::string lockFile;       // of the single instance
  std::string homeFolder;     // the user's own
  std::string desktopFolder;  // where the desktop looks for the user's programs; "" to leave it alone
};

// The one place that asks the system for paths. The program folder is the executable's own folder when that
// is writable and holds the pages (a build tree, an unpacked archive); else the user's data folder, seeded
// from the installed data on first use. The environment variable LORELIN_HOME names another folder for
// everything that the program writes (program folder, settings, log, lock); it is seeded the same way.
[[nodiscard]] ProgramPaths FindProgramPaths();

}  // namespace lorelin
