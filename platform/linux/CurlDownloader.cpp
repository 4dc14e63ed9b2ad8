#include "platform/linux/CurlDownloader.h"

#include <sys/xattr.h>

#include <cerrno>
#include <cstring>
#include <limits>
#include <string_view>

#include "base/contentType.h"
#include "base/paths.h"
#include "platform/common/unfinishedFile.h"
#include "platform/linux/CurlTransfer.h"

namespace lorelin {

std::string CurlDownloader::Download(const std::string& url, const std::string& targetFile,
                                     const std::function<bool()>& keepGoing) {
  return FetchPage(url, targetFile, std::numeric_limits<std::uintmax_t>::max(), keepGoing).problem;
}

Downloader::Page CurlDownloader::FetchPage(const std::string& url, const std::string& targetFile,
                                           std::uintmax_t mostBytes, const std::function<bool()>& keepGoing) {
  const CurlLibrary* const curl = Curl();
  const std::string address = curl != nullptr ? PublicAddress(*curl, url) : std::string();
  const auto fail = [&](std::string reason, bool tooLarge = false) {
    log_.Write("Download " + (address.empty() ? "(unverständliche Adresse)" : address) + " nach " +
               targetFile + ": " + reason);
    return Page{.problem = std::move(reason), .tooLarge = tooLarge, .charset = {}};
  };
  if (curl == nullptr) return fail("libcurl ist nicht installiert");
  if (targetFile.empty()) return fail("kein Dateiname");
  UnfinishedFile file(NativePath(targetFile));
  if (const int error = file.Open(); error != 0) return fail(std::strerror(error));
  std::uintmax_t room = mostBytes;
  bool tooLarge = false;
  const auto write = [&](std::string_view bytes) {
    tooLarge = bytes.size() > room;
    if (tooLarge) return EFBIG;
    room -= bytes.size();
    return file.Write(bytes);
  };
  CurlTransfer transfer(*curl, {.url = url, .write = write, .packed = true});
  if (const std::string reason = transfer.Run(keepGoing); !reason.empty())
    return fail(tooLarge ? "zu groß" : reason, tooLarge);
  // Not every file system has such attributes.
  (void)setxattr(file.Path().c_str(), "user.xdg.origin.url", address.data(), address.size(), 0);
  if (const int error = file.PutInPlace(); error != 0) return fail(std::strerror(error));
  return {.problem = {}, .charset = CharsetOfContentType(transfer.ContentType())};
}

}  // namespace lorelin
