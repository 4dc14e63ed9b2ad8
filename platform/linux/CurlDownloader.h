#pragma once

#include "ports/Downloader.h"
#include "ports/Log.h"

namespace lorelin {

// Downloads through libcurl, which also reads the proxies from the environment. Where the file system can, a
// file carries its address in `user.xdg.origin.url` (freedesktop.org, Common Extended Attributes).
class CurlDownloader final : public Downloader {
 public:
  // Does not own the log, which must outlive it.
  explicit CurlDownloader(Log& log) : log_(log) {}
  std::string Download(const std::string& url, const std::string& targetFile,
                       const std::function<bool()>& keepGoing) override;
  Page FetchPage(const std::string& url, const std::string& targetFile, std::uintmax_t mostBytes,
                 const std::function<bool()>& keepGoing) override;

 private:
  Log& log_;
};

}  // namespace lorelin
