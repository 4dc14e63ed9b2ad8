#pragma once

namespace lorelin {

// Port: whether another instance of the program runs for this user.
class SingleInstance {
 public:
  virtual ~SingleInstance() = default;
  // The first call claims the place; it is held by the kernel until the process ends, however it ends.
  [[nodiscard]] virtual bool IsAlreadyRunning() = 0;
};

}  // namespace lorelin
