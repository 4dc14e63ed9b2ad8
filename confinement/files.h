#pragma once

#include <filesystem>
#include <vector>

namespace lorelin {

// The files and folders, with all that is below them, that a process goes on being able to open.
struct KeptFiles {
  std::vector<std::filesystem::path> readable;
  std::vector<std::filesystem::path> runnable;  // and readable
  std::vector<std::filesystem::path> writable;  // and readable: files may come, change and go
};

// From here on the system refuses other files to the process and what it starts, with EACCES. What is open
// stays so; what of them is not there is passed over. To be called before there are threads. False when the
// system cannot do that: then nothing has changed.
bool KeepFiles(const KeptFiles& kept);

// Folders of the system: programs, libraries, their data and settings. Not those where people keep their
// own.
[[nodiscard]] std::vector<std::filesystem::path> SystemFolders();

}  // namespace lorelin
