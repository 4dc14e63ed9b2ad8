#pragma once

#include <chrono>
#include <functional>

namespace lorelin {

// Port: something to be done later, once. User-interface thread only.
class Alarm {
 public:
  virtual ~Alarm() = default;
  // Calls `ring` from the event loop when the time is over. What was set before is forgotten.
  virtual void Set(std::chrono::milliseconds time, std::function<void()> ring) = 0;
  virtual void Cancel() = 0;
};

}  // namespace lorelin
