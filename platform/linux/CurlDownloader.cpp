#include "platform/linux/CurlDownloader.h"

#include <sys/xattr.h>

#include <cstring>
#include <string_view>

#include "base/paths.h"
#include "platform/common/unfinishedFile.h"
#include "platform/linux/CurlTransfer.h"

namespace lorelin {

std::string CurlDownloader::Download(const std::string& url, const std::string& targetFile,
                                     const std::function<bool()>& keepGoing) {
  const CurlLibrary* const curl = Curl();
  const std::string address = curl != nullptr ? PublicAddress(*curl, url) : std::string();
  const auto fail = [&](std::string reason) {
    log_.Write("Download " + (address.empty() ? "(unverständliche Adresse)" : address) + " nach " +
               targetFile + ": " + reason);
    return reason;
  };
  if (curl == nullptr) return fail("libcurl ist nicht installiert");
  if (targetFile.empty()) return fail("kein Dateiname");
  UnfinishedFile file(NativePath(targetFile));
  if (const int error = file.Open(); error != 0) return fail(std::strerror(error));
  const auto write = [&](std::string_view bytes) { return file.Write(bytes); };
  CurlTransfer transfer(*curl, {.url = url, .write = write, .packed = true});
  if (const std::string reason = transfer.Run(keepGoing); !reason.empty()) return fail(reason);
  // Not every file system has such attributes.
  (void)setxattr(file.Path().c_str(), "user.xdg.origin.url", address.data(), address.size(), 0);
  if (const int error = file.PutInPlace(); error != 0) return fail(std::strerror(error));
  return {};
}

}  // namespace lorelin
