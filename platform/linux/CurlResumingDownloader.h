#pragma once

#include "ports/Log.h"
#include "ports/ResumingDownloader.h"

namespace lorelin {

// Fetches through libcurl; a part that somebody else is writing is left alone (flock).
class CurlResumingDownloader final : public ResumingDownloader {
 public:
  // Does not own the log, which must outlive it.
  explicit CurlResumingDownloader(Log& log) : log_(log) {}
  DownloadEnd Resume(const std::string& url, const std::string& part, std::uintmax_t mostBytes,
                     const std::function<bool(std::uintmax_t there)>& keepGoing) override;

 private:
  Log& log_;
};

}  // namespace lorelin
