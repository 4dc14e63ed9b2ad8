#include "platform/linux/storeFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <ctime>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "base/paths.h"
#include "platform/linux/ownFolder.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

std::string LockFile(const std::string& file) {
  return file + ".lock";
}

std::string TimeStamp() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &local);
  return text.data();
}

bool HasBytes(const std::string& file) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(NativePath(file), error);
  return !error && size > 0;
}

}  // namespace

OpeningLock::OpeningLock(const std::string& file, int operation)
    : lock_(open(LockFile(file).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
  if (lock_ >= 0) flock(lock_, operation);
}

OpeningLock::~OpeningLock() {
  if (lock_ >= 0) close(lock_);
}

void OpeningLock::RememberStore() const {
  struct stat status {};
  if (lock_ < 0 || fstat(lock_, &status) != 0 || status.st_size > 0) return;
  (void)!pwrite(lock_, "1", 1, 0);  // a disk that is full is another matter; the next opening tries again
}

bool WasWritten(const std::string& file) {
  return HasBytes(LockFile(file));
}

bool WasEmptied(const std::string& file) {
  // In this order: between the two another program may have made the first store.
  if (!WasWritten(file)) return false;
  std::error_code error;
  const std::uintmax_t size = fs::file_size(NativePath(file), error);
  return !error && size == 0;
}

bool MayExist(const std::string& file) {
  std::error_code error;
  return fs::symlink_status(NativePath(file), error).type() != fs::file_type::not_found;
}

bool HasLog(const std::string& file) {
  return HasBytes(file + "-wal");
}

bool CanWriteBeside(const std::string& file) {
  const fs::path path = NativePath(file);
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  CloseOwnFolder(path.parent_path());
  return access(path.parent_path().c_str(), W_OK | X_OK) == 0 &&
         (!fs::exists(path, error) || access(path.c_str(), R_OK | W_OK) == 0);
}

void CloseStore(const std::string& file) {
  const int store = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600);
  if (store >= 0) close(store);
  for (const auto* const suffix : {"", "-wal", "-shm"}) {
    struct stat status {};
    const std::string name = file + suffix;
    if (stat(name.c_str(), &status) == 0 && S_ISREG(status.st_mode) && (status.st_mode & 077) != 0) {
      (void)chmod(name.c_str(), 0600);
    }
  }
}

std::string FreeName(const std::string& file, const std::string& reason) {
  const std::string base = file + "." + reason + "-" + TimeStamp();
  std::string name = base;
  for (int i = 2; MayExist(name); ++i) name = base + "-" + std::to_string(i);
  return name;
}

// The store's own file goes last: a new store must not begin beside the old one's log.
bool SetAside(const std::string& file, const std::string& name, Log& log) {
  std::error_code error;
  for (const auto* const suffix : {"-wal", "-shm"}) fs::rename(file + suffix, name + suffix, error);
  fs::rename(file, name, error);
  if (!error) return true;
  log.Write("Einstellungen: " + file + " lässt sich nicht umbenennen: " + error.message());
  return false;
}

}  // namespace lorelin
