#include "engine/TargetFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "base/unfinishedName.h"

namespace lorelin::engine {

TargetFile::TargetFile(const std::string& path)
    : target_(FollowedLinks(std::u8string(path.begin(), path.end()))), unfinished_(UnfinishedName(target_)) {}

TargetFile::~TargetFile() {
  if (descriptor_ < 0) return;
  unlink(unfinished_.c_str());
  close(descriptor_);
}

// A pipe would hold up who opens it, and takes no header at the end; a device takes no other's place.
int TargetFile::CheckTarget() {
  struct stat status {};
  if (stat(target_.c_str(), &status) != 0) return errno == ENOENT ? 0 : errno;
  replaces_ = true;
  if (S_ISDIR(status.st_mode)) return EISDIR;
  if (!S_ISREG(status.st_mode)) return EINVAL;
  return access(target_.c_str(), W_OK) == 0 ? 0 : errno;
}

// The lock tells a file that is being written from one that a killed process left behind.
int TargetFile::Open() {
  if (const int error = CheckTarget(); error != 0) return error;
  constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
  descriptor_ = open(unfinished_.c_str(), kFlags, 0666);
  if (descriptor_ < 0 && errno == EEXIST) {
    if (const int error = ClearStale(); error != 0) return error;
    descriptor_ = open(unfinished_.c_str(), kFlags, 0666);
  }
  if (descriptor_ < 0) return errno;
  flock(descriptor_, LOCK_EX | LOCK_NB);
  struct stat status {};
  if (fstat(descriptor_, &status) != 0) return errno;
  newMode_ = status.st_mode & 0777;
  return fchmod(descriptor_, 0600) == 0 ? 0 : errno;
}

int TargetFile::ClearStale() const {
  const int stale = open(unfinished_.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (stale < 0) return errno == ENOENT ? 0 : errno;
  int error = 0;
  if (flock(stale, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) error = EBUSY;
  if (error == 0 && unlink(unfinished_.c_str()) != 0 && errno != ENOENT) error = errno;
  close(stale);
  return error;
}

// What takes the place of another file has to be on the disk before.
int TargetFile::PutInPlace() {
  if (const int error = SetPermissions(); error != 0) return error;
  if (replaces_ && fsync(descriptor_) != 0) return errno;
  if (rename(unfinished_.c_str(), target_.c_str()) != 0) return errno;
  return close(std::exchange(descriptor_, -1)) == 0 ? 0 : errno;
}

int TargetFile::SetPermissions() const {
  struct stat status {};
  mode_t mode = newMode_;
  if (replaces_ && stat(target_.c_str(), &status) == 0) {
    (void)!fchown(descriptor_, status.st_uid, status.st_gid);  // only root can give a file away
    mode = status.st_mode & 07777;
  } else if (const auto folder = target_.parent_path();
             stat(folder.empty() ? "." : folder.c_str(), &status) == 0) {
    if ((status.st_mode & S_IXGRP) == 0) mode &= ~static_cast<mode_t>(S_IRWXG);
    if ((status.st_mode & S_IXOTH) == 0) mode &= ~static_cast<mode_t>(S_IRWXO);
  }
  return fchmod(descriptor_, mode) == 0 ? 0 : errno;
}

int TargetFile::Write(const char* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t written = write(descriptor_, bytes, size);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return written < 0 ? errno : EIO;
    bytes += written;
    size -= static_cast<std::size_t>(written);
  }
  return 0;
}

int TargetFile::Seek(std::int64_t place) {
  return lseek(descriptor_, place, SEEK_SET) == place ? 0 : errno;
}

}  // namespace lorelin::engine
