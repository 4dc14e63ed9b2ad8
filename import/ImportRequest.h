#pragma once

#include <functional>
#include <string>

namespace lorelin {

// What lorelin-import is asked for, as in ImportProcess::Job.
struct ImportRequest {
  std::string path;  // as the system takes it
  bool articleOnly = false;
  bool recognisePages = false;
  std::string source{};
  std::string charset{};
};

// Told the per cent that are done.
using ImportProgress = std::function<void(int percent)>;

}  // namespace lorelin
