#pragma once

#include <filesystem>
#include <mutex>
#include <string>

#include "ports/Clock.h"
#include "ports/Log.h"

namespace lorelin {

// A log in a file, one line an entry with the local time in front. At 1 MiB the file becomes "<name>.1" and a
// new one begins. A file that cannot be written is silently done without; nobody
// but its owner can read it. Names and passwords in web addresses are left out.
class LogFile final : public Log {
 public:
  // Does not own the clock, which is asked from any thread. The path is UTF-8.
  LogFile(const std::string& path, Clock& clock, bool copyToStandardError = false);
  void Write(std::string_view line) override;

 private:
  [[nodiscard]] std::string WithTime(std::string_view line);

  std::mutex mutex_;
  std::filesystem::path path_;
  Clock& clock_;
  bool copyToStandardError_;
};

}  // namespace lorelin
