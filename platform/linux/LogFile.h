#pragma once

#include <mutex>
#include <string>

#include "platform/Log.h"

namespace lorelin {

// A log in a file, one line an entry with the local time in front. At 1 MiB the file becomes "<name>.1" and a
// new one begins. A file that cannot be written is silently done without.
class LogFile final : public Log {
 public:
  explicit LogFile(std::string path, bool copyToStandardError = false);
  void Write(std::string_view line) override;

 private:
  std::mutex mutex_;
  std::string path_;
  bool copyToStandardError_;
};

}  // namespace lorelin
