#include "platform/linux/ownFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <system_error>

namespace lorelin {

void CloseOwnFolder(const std::filesystem::path& folder) {
  namespace fs = std::filesystem;
  struct stat status {};
  if (lstat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != geteuid()) return;
  if ((status.st_mode & S_ISVTX) != 0 || (status.st_mode & 077) == 0) return;
  std::error_code error;
  const bool own = folder.filename() == "lorelin" || fs::exists(folder / "registry.sqlite", error) ||
                   fs::is_empty(folder, error);
  if (own && !error) (void)chmod(folder.c_str(), 0700);
}

}  // namespace lorelin
