#include "platform/linux/CurlResumingDownloader.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>
#include <utility>

#include "base/paths.h"
#include "platform/linux/CurlTransfer.h"

namespace lorelin {
namespace {

using Kind = DownloadEnd::Kind;

constexpr long kNothingThere = 416;  // HTTP: the file ends before the byte that was asked for
constexpr mode_t kUsual = 0666;

// What has arrived of a file, locked for this object.
class PartFile {
 public:
  explicit PartFile(const std::string& path)
      : descriptor_(open(NativePath(path).c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, kUsual)) {
    error_ = descriptor_ < 0 ? errno : 0;
    if (error_ == 0 && flock(descriptor_, LOCK_EX | LOCK_NB) != 0) error_ = EWOULDBLOCK;
    struct stat found {};
    if (error_ == 0 && fstat(descriptor_, &found) == 0) size_ = static_cast<std::uintmax_t>(found.st_size);
  }
  ~PartFile() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;

  [[nodiscard]] int Error() const { return error_; }
  [[nodiscard]] std::uintmax_t Size() const { return size_; }

  int Write(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) return errno;
      size_ += static_cast<std::uintmax_t>(written);
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
  }
  int Clear() {
    size_ = 0;
    return ftruncate(descriptor_, 0) == 0 ? 0 : errno;
  }
  int Store() { return fsync(descriptor_) == 0 ? 0 : errno; }

 private:
  int descriptor_ = -1;
  int error_ = 0;
  std::uintmax_t size_ = 0;
};

DownloadEnd EndOf(int error) {
  const bool full = error == ENOSPC || error == EDQUOT || error == EFBIG;
  if (error == EWOULDBLOCK) return {Kind::Busy, "wird schon heruntergeladen"};
  return {full ? Kind::DiskFull : Kind::NotWritable, std::strerror(error)};
}

struct Attempt {
  DownloadEnd end;
  bool anew = false;  // the server cannot go on from where the part ends
};

Attempt EndOf(const CurlTransfer& transfer, const std::string& reason, bool tooLarge) {
  if (tooLarge) return {{Kind::TooLarge, "größer als angekündigt"}};
  if (transfer.Cancelled()) return {{Kind::Cancelled, reason}};
  if (transfer.WriteError() != 0) return {EndOf(transfer.WriteError())};
  const bool refused = transfer.Code() == CURLE_HTTP_RETURNED_ERROR;
  const bool anew = transfer.Code() == CURLE_RANGE_ERROR || (refused && transfer.Status() == kNothingThere);
  return {{refused ? Kind::Refused : Kind::Cut, reason}, anew};
}

Attempt Try(const CurlLibrary& curl, const std::string& url, PartFile& part, std::uintmax_t mostBytes,
            const std::function<bool(std::uintmax_t)>& keepGoing) {
  bool tooLarge = false;
  const auto write = [&](std::string_view bytes) {
    tooLarge = part.Size() + bytes.size() > mostBytes;
    return tooLarge ? EFBIG : part.Write(bytes);
  };
  CurlTransfer transfer(curl, {.url = url, .write = write, .from = part.Size()});
  const std::string reason = transfer.Run([&] { return keepGoing(part.Size()); });
  if (!reason.empty()) return EndOf(transfer, reason, tooLarge);
  const int error = part.Store();
  return error == 0 ? Attempt{} : Attempt{EndOf(error)};
}

}  // namespace

DownloadEnd CurlResumingDownloader::Resume(const std::string& url, const std::string& part,
                                           std::uintmax_t mostBytes,
                                           const std::function<bool(std::uintmax_t there)>& keepGoing) {
  const CurlLibrary* const curl = Curl();
  const auto ended = [&](DownloadEnd end) {
    if (end.kind != Kind::Complete) {
      log_.Write("Download " + (curl != nullptr ? PublicAddress(*curl, url) : url) + " nach " + part + ": " +
                 end.detail);
    }
    return end;
  };
  if (curl == nullptr) return ended({Kind::Impossible, "libcurl ist nicht installiert"});
  PartFile file(part);
  if (file.Error() != 0) return ended(EndOf(file.Error()));
  Attempt attempt = Try(*curl, url, file, mostBytes, keepGoing);
  if (attempt.anew && file.Clear() == 0) attempt = Try(*curl, url, file, mostBytes, keepGoing);
  if (attempt.end.kind == Kind::TooLarge) (void)file.Clear();
  return ended(attempt.end);
}

}  // namespace lorelin
