#pragma once

#include <string_view>

namespace lorelin {

// Port: where errors go that the user is not bothered with. One line an entry; never throws; any thread.
class Log {
 public:
  virtual ~Log() = default;
  virtual void Write(std::string_view line) = 0;
};

}  // namespace lorelin
