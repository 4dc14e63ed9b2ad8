#pragma once

#include <string>

#include "ports/SingleInstance.h"

namespace lorelin {

// The place is a lock on a file; the kernel takes it back when the process ends, however it ends.
class FlockSingleInstance final : public SingleInstance {
 public:
  explicit FlockSingleInstance(std::string lockFile);
  ~FlockSingleInstance() override;
  FlockSingleInstance(const FlockSingleInstance&) = delete;
  FlockSingleInstance& operator=(const FlockSingleInstance&) = delete;

  // Where no lock file can be opened or locked, the answer is "no": the program has to start all the same.
  bool IsAlreadyRunning() override;

 private:
  std::string lockFile_;
  int file_ = -1;
};

}  // namespace lorelin
