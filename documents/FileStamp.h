#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace lorelin {

// How a file stood at some time, to notice that another program wrote it.
struct FileStamp {
  bool exists = false;
  std::uintmax_t size = 0;
  std::filesystem::file_time_type time;

  bool operator==(const FileStamp&) const = default;
};

// Never throws; what cannot be looked at does not exist.
[[nodiscard]] FileStamp StampOf(const std::string& path);

}  // namespace lorelin
