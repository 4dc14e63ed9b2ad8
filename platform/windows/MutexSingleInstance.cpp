#include "platform/windows/MutexSingleInstance.h"

#include <windows.h>

#include <algorithm>

#include "platform/windows/wideText.h"

namespace lorelin {

// A backslash would name a namespace of the kernel.
MutexSingleInstance::MutexSingleInstance(const std::string& name) : name_(Wide(name)) {
  std::replace(name_.begin(), name_.end(), L'\\', L'/');
  name_.insert(0, L"Local\\");
}

MutexSingleInstance::~MutexSingleInstance() {
  if (mutex_ != nullptr) CloseHandle(mutex_);
}

bool MutexSingleInstance::IsAlreadyRunning() {
  if (claimed_) return false;
  const HANDLE mutex = CreateMutexW(nullptr, FALSE, name_.c_str());
  if (mutex == nullptr) return GetLastError() == ERROR_ACCESS_DENIED;  // somebody else's
  if (GetLastError() == ERROR_ALREADY_EXISTS) {
    CloseHandle(mutex);
    return true;
  }
  mutex_ = mutex;
  claimed_ = true;
  return false;
}

}  // namespace lorelin
