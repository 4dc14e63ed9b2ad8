#include "platform/common/unfinishedFile.h"

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

struct UnfinishedFile::Handle {
  int descriptor = -1;
  bool replaces = false;  // a file that is there

  ~Handle() {
    if (descriptor >= 0) close(descriptor);
  }

  [[nodiscard]] int KeepPermissions(const fs::path& target) const {
    struct stat status {};
    if (replaces && stat(target.c_str(), &status) == 0) {
      (void)!fchown(descriptor, status.st_uid, status.st_gid);  // only root can give a file away
      return fchmod(descriptor, status.st_mode & 07777) == 0 ? 0 : errno;
    }
    const mode_t mask = CreationMask();
    return fchmod(descriptor, 0666 & ~mask) == 0 ? 0 : errno;
  }
};

UnfinishedFile::UnfinishedFile(const fs::path& target)
    : target_(Resolved(target)), handle_(std::make_unique<Handle>()) {}

UnfinishedFile::~UnfinishedFile() {
  if (!path_.empty()) unlink(path_.c_str());
}

int UnfinishedFile::Open() {
  if (!target_.has_filename()) return target_.empty() ? ENOENT : EINVAL;
  struct stat status {};
  if (lstat(target_.c_str(), &status) == 0) {
    handle_->replaces = true;
    if (!S_ISREG(status.st_mode) && !S_ISLNK(status.st_mode)) return EINVAL;
    if (S_ISREG(status.st_mode) && access(target_.c_str(), W_OK) != 0) return errno;
  } else if (errno != ENOENT) {
    return errno;
  }
  std::string name = (FolderOf(target_) / ".lorelin-XXXXXX").string();
  handle_->descriptor = mkostemp(name.data(), O_CLOEXEC);
  if (handle_->descriptor < 0) return errno;
  path_ = name;
  return 0;
}

int UnfinishedFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(handle_->descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    if (written == 0) return EIO;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

int UnfinishedFile::PutInPlace() {
  if (const int error = handle_->KeepPermissions(target_); error != 0) return error;
  if (fsync(handle_->descriptor) != 0) return errno;
  const int descriptor = std::exchange(handle_->descriptor, -1);
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
