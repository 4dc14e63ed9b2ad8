#pragma once

#include <string>

#include "ports/SingleInstance.h"

namespace lorelin {

// A named mutex in the user's session, which the kernel drops with the process.
class MutexSingleInstance final : public SingleInstance {
 public:
  // `name` tells programs apart that do not know of each other (UTF-8).
  explicit MutexSingleInstance(const std::string& name);
  ~MutexSingleInstance() override;
  MutexSingleInstance(const MutexSingleInstance&) = delete;
  MutexSingleInstance& operator=(const MutexSingleInstance&) = delete;

  bool IsAlreadyRunning() override;

 private:
  std::wstring name_;
  void* mutex_ = nullptr;
  bool claimed_ = false;
};

}  // namespace lorelin
