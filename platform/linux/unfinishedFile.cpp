#include "platform/linux/unfinishedFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <string>
#include <system_error>
#include <utility>

namespace lorelin {
namespace {

namespace fs = std::filesystem;

// A link that points nowhere is replaced itself.
fs::path Resolved(const fs::path& target) {
  std::error_code error;
  if (!fs::is_symlink(fs::symlink_status(target, error))) return target;
  const fs::path pointedTo = fs::canonical(target, error);
  return error ? target : pointedTo;
}

// The call that asks for it would change it for a moment, for every thread.
mode_t CreationMask() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("Umask:")) return static_cast<mode_t>(std::strtoul(line.c_str() + 6, nullptr, 8));
  }
  return 022;
}

fs::path FolderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

}  // namespace

UnfinishedFile::UnfinishedFile(const fs::path& target) : target_(Resolved(target)) {}

UnfinishedFile::~UnfinishedFile() {
  if (file_ >= 0) close(file_);
  if (!path_.empty()) unlink(path_.c_str());
}

int UnfinishedFile::Open() {
  if (!target_.has_filename()) return target_.empty() ? ENOENT : EINVAL;
  struct stat status {};
  if (lstat(target_.c_str(), &status) == 0) {
    there_ = true;
    if (!S_ISREG(status.st_mode) && !S_ISLNK(status.st_mode)) return EINVAL;
    if (S_ISREG(status.st_mode) && access(target_.c_str(), W_OK) != 0) return errno;
  } else if (errno != ENOENT) {
    return errno;
  }
  std::string name = (FolderOf(target_) / ".lorelin-XXXXXX").string();
  file_ = mkostemp(name.data(), O_CLOEXEC);
  if (file_ < 0) return errno;
  path_ = name;
  return 0;
}

int UnfinishedFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    if (written == 0) return EIO;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

int UnfinishedFile::KeepPermissions() const {
  struct stat status {};
  if (there_ && stat(target_.c_str(), &status) == 0) {
    (void)!fchown(file_, status.st_uid, status.st_gid);  // only root can give a file away
    return fchmod(file_, status.st_mode & 07777) == 0 ? 0 : errno;
  }
  const mode_t mask = CreationMask();
  return fchmod(file_, 0666 & ~mask) == 0 ? 0 : errno;
}

int UnfinishedFile::PutInPlace() {
  if (const int error = KeepPermissions(); error != 0) return error;
  if (fsync(file_) != 0) return errno;
  const int descriptor = std::exchange(file_, -1);
  if (close(descriptor) != 0) return errno;
  if (rename(path_.c_str(), target_.c_str()) != 0) return errno;
  path_.clear();
  // The new content is in place either way; this only makes the name durable.
  const int folder = open(FolderOf(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder >= 0) {
    fsync(folder);
    close(folder);
  }
  return 0;
}

}  // namespace lorelin
