#include "documents/FileStamp.h"

#include <system_error>

#include "base/paths.h"

namespace lorelin {

FileStamp StampOf(const std::string& path) {
  if (path.empty()) return {};
  const std::filesystem::path native = NativePath(path);
  std::error_code error;
  FileStamp stamp;
  stamp.size = std::filesystem::file_size(native, error);
  if (!error) stamp.time = std::filesystem::last_write_time(native, error);
  if (error) return {};
  stamp.exists = true;
  return stamp;
}

}  // namespace lorelin
