#pragma once

#include "ports/Downloader.h"
#include "ports/Log.h"

namespace lorelin {

// Downloads through the system's own internet functions (urlmon, wininet), with its proxies and certificates,
// on a thread of its own.
class UrlmonDownloader final : public Downloader {
 public:
  // Does not own the log, which must outlive it.
  explicit UrlmonDownloader(Log& log) : log_(log) {}
  std::string Download(const std::string& url, const std::string& targetFile,
                       const std::function<bool()>& keepGoing) override;
  Page FetchPage(const std::string& url, const std::string& targetFile, std::uintmax_t mostBytes,
                 const std::function<bool()>& keepGoing) override;

 private:
  Log& log_;
};

}  // namespace lorelin
