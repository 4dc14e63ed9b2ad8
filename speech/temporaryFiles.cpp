#include "speech/temporaryFiles.h"

#include <filesystem>
#include <system_error>

#include "base/paths.h"

namespace lorelin {

void RemoveTemporaryFiles(const std::string& programFolder, FileSearch& fileSearch, Log& log) {
  const std::string folder = JoinPath(programFolder, {"temp"});
  std::error_code error;
  if (std::filesystem::is_symlink(std::filesystem::symlink_status(NativePath(folder), error))) return;
  for (const std::string& name : fileSearch.FilesMatching(JoinPath(folder, {"*.*"}))) {
    RemoveTemporaryFile(JoinPath(folder, {name}), log);
  }
}

void RemoveTemporaryFile(const std::string& path, Log& log) {
  std::error_code error;
  std::filesystem::remove(NativePath(path), error);
  if (error) log.Write(path + " bleibt: " + error.message());
}

}  // namespace lorelin
