#include "platform/linux/EngineSoundRendering.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include "base/RuntimeError.h"
#include "base/paths.h"
#include "base/unfinishedName.h"
#include "platform/common/soundTags.h"
#include "platform/linux/EngineClient.h"

namespace lorelin {
namespace {

class EngineSoundRenderer final : public SoundRenderer {
 public:
  EngineSoundRenderer(const std::string& engineFile, UnfinishedList& unfinished, EventPump& pump,
                      Clock& clock, Log& log)
      : unfinished_(unfinished), client_({.engineFile = engineFile, .condition = {}}, pump, clock, log) {}
  DirectSS& Voice() override { return client_; }
  void SetSoundFile(const std::string& path, SoundFormat format, SoundQuality quality) override {
    unfinished_.Add(path);
    client_.SetSoundFormat(format, quality, true);
    client_.SetWaveFile(path);
  }

 private:
  UnfinishedList& unfinished_;
  EngineClient client_;
};

// A file that goes with the object until it is kept.
class Rendered {
 public:
  explicit Rendered(std::filesystem::path path) : path_(std::move(path)) {}
  ~Rendered() {
    if (!path_.empty()) unlink(path_.c_str());
  }
  Rendered(const Rendered&) = delete;
  Rendered& operator=(const Rendered&) = delete;

  // Whether the file system has room for so much more: the library that writes the tags does not tell.
  // Answers 0 or an errno.
  [[nodiscard]] int MakeRoom(std::size_t bytes) const {
    const int descriptor = open(path_.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
    struct stat status {};
    if (descriptor < 0 || fstat(descriptor, &status) != 0) return errno;
    const std::string zeros(bytes, '\0');
    int error = write(descriptor, zeros.data(), bytes) == static_cast<ssize_t>(bytes) ? 0 : ENOSPC;
    if (error == 0 && fsync(descriptor) != 0) error = errno;
    if (ftruncate(descriptor, status.st_size) != 0 && error == 0) error = errno;
    close(descriptor);
    return error;
  }

  // Makes it durable, with the permissions of what it takes the place of. Answers 0 or an errno.
  [[nodiscard]] int Prepare(const std::filesystem::path& target) const {
    const int descriptor = open(path_.c_str(), O_RDWR | O_CLOEXEC);
    if (descriptor < 0) return errno;
    int error = 0;
    struct stat status {};
    if (stat(target.c_str(), &status) == 0) {
      if (access(target.c_str(), W_OK) != 0) error = errno;
      (void)!fchown(descriptor, status.st_uid, status.st_gid);  // only root can give a file away
      if (error == 0 && fchmod(descriptor, status.st_mode & 07777) != 0) error = errno;
    }
    if (error == 0 && fsync(descriptor) != 0) error = errno;
    close(descriptor);
    return error;
  }
  [[nodiscard]] int MoveTo(const std::filesystem::path& target) {
    if (rename(path_.c_str(), target.c_str()) != 0) return errno;
    path_.clear();
    return 0;
  }

 private:
  std::filesystem::path path_;
};

ErrorNumber NumberOf(int error) {
  if (error == ENOSPC || error == EDQUOT || error == EFBIG) return ErrorNumber::DiskFull;
  if (error == EACCES || error == EPERM || error == EROFS) return ErrorNumber::PermissionDenied;
  return ErrorNumber::PathFileAccess;
}

}  // namespace

std::unique_ptr<SoundRenderer> EngineSoundRendering::Make(EventPump& pump) {
  return std::make_unique<EngineSoundRenderer>(engineFile_, unfinished_, pump, clock_, log_);
}

void EngineSoundRendering::PutInPlace(const std::string& rendered, const std::string& target,
                                      SoundFormat format, const SoundTags& tags) {
  const std::filesystem::path place = FollowedLinks(NativePath(target));
  Rendered file(NativePath(rendered));
  int error = 0;
  if (format != SoundFormat::Wav) {
    error = file.MakeRoom(RoomForSoundTags(tags));
    if (error == 0 && !WriteSoundTags(NativePath(rendered), format, tags)) error = EIO;
  }
  if (error == 0) error = file.Prepare(place);
  if (error == 0) error = file.MoveTo(place);
  unfinished_.Remove(rendered);
  if (error != 0) throw RuntimeError(NumberOf(error));
}

}  // namespace lorelin
