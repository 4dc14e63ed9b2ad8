#include "platform/linux/FlockSingleInstance.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace lorelin {
namespace {

// Closed in children, which must not keep the lock.
int OpenLockFile(const std::string& path) {
  std::error_code error;
  std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
  return open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
}

}  // namespace

FlockSingleInstance::FlockSingleInstance(std::string lockFile) : lockFile_(std::move(lockFile)) {}

FlockSingleInstance::~FlockSingleInstance() {
  if (file_ >= 0) close(file_);
}

bool FlockSingleInstance::IsAlreadyRunning() {
  if (file_ >= 0) return false;
  file_ = OpenLockFile(lockFile_);
  const char* const runtimeFolder = std::getenv("XDG_RUNTIME_DIR");
  if (file_ < 0 && runtimeFolder != nullptr)
    file_ = OpenLockFile(std::string(runtimeFolder) + "/lorelin.lock");
  if (file_ < 0) return false;
  int result = 0;
  do {
    result = flock(file_, LOCK_EX | LOCK_NB);
  } while (result != 0 && errno == EINTR);
  const bool taken = result != 0 && errno == EWOULDBLOCK;
  if (taken) close(std::exchange(file_, -1));
  return taken;
}

}  // namespace lorelin
