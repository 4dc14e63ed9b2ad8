#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "base/unfinishedName.h"
#include "engine/TargetFile.h"
#include "platform/windows/replaceFile.h"
#include "platform/windows/systemErrors.h"

namespace lorelin::engine {

TargetFile::TargetFile(const std::string& path)
    : target_(FollowedLinks(std::u8string(path.begin(), path.end()))), unfinished_(UnfinishedName(target_)) {}

TargetFile::~TargetFile() {
  if (descriptor_ < 0) return;
  _close(descriptor_);
  DeleteFileW(unfinished_.c_str());
}

// Consoles and other devices have names like files.
int TargetFile::CheckTarget() {
  const DWORD attributes = GetFileAttributesW(target_.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return 0;
  replaces_ = true;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return EISDIR;
  if ((attributes & FILE_ATTRIBUTE_DEVICE) != 0) return EINVAL;
  return (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? EACCES : 0;
}

// Nobody else writes or deletes the file meanwhile: that tells it from one that a killed process left behind.
int TargetFile::Open() {
  if (const int error = CheckTarget(); error != 0) return error;
  constexpr int kFlags = _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT;
  const auto open = [this] {
    descriptor_ = _wsopen(unfinished_.c_str(), kFlags, _SH_DENYWR, _S_IREAD | _S_IWRITE);
    return descriptor_ >= 0 ? 0 : errno;
  };
  const int error = open();
  if (error != EEXIST) return error;
  if (const int stale = ClearStale(); stale != 0) return stale;
  return open();
}

int TargetFile::ClearStale() const {
  if (DeleteFileW(unfinished_.c_str()) != FALSE) return 0;
  const DWORD error = GetLastError();
  return error == ERROR_SHARING_VIOLATION ? EBUSY : ErrnoOf(error);
}

// What takes the place of another file has to be on the disk before.
int TargetFile::PutInPlace() {
  if (replaces_ && _commit(descriptor_) != 0) return errno;
  _close(std::exchange(descriptor_, -1));
  const int error = ReplaceFileBy(target_, unfinished_);
  if (error != 0) DeleteFileW(unfinished_.c_str());
  return error;
}

int TargetFile::Write(const char* bytes, std::size_t size) {
  constexpr std::size_t kMost = std::size_t{1} << 30;
  while (size > 0) {
    const int written = _write(descriptor_, bytes, static_cast<unsigned>(std::min(size, kMost)));
    if (written <= 0) return written < 0 ? errno : EIO;
    bytes += written;
    size -= static_cast<std::size_t>(written);
  }
  return 0;
}

int TargetFile::Seek(std::int64_t place) {
  return _lseeki64(descriptor_, place, SEEK_SET) == place ? 0 : errno;
}

}  // namespace lorelin::engine
