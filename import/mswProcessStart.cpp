#include <fcntl.h>
#include <io.h>
#include <windows.h>
// the other needs windows.h before it
#include <shellapi.h>

#include <cstdio>
#include <filesystem>

#include "import/processStart.h"

namespace lorelin {

// What main is given has lost the characters that the system's code page does not have.
std::vector<std::string> StartProcess(int, char**) {
  _setmode(_fileno(stdout), _O_BINARY);
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) {
    const std::u8string argument = std::filesystem::path(wide[i]).u8string();
    arguments.emplace_back(argument.begin(), argument.end());
  }
  LocalFree(wide);
  return arguments;
}

}  // namespace lorelin
