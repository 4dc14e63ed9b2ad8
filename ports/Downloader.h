#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace lorelin {

// Port: fetching one address into one file.
class Downloader {
 public:
  virtual ~Downloader() = default;
  // Fetches an http or https address, past every cache and with redirects followed, and returns when that is
  // done. `keepGoing` is called at least every 50 ms meanwhile, on the caller's thread; it may let events in,
  // and ends the download when it answers false. The target (UTF-8, either separator) appears complete or is
  // left as it was. Never throws of its own accord: a failure goes to the log and its reason is the result,
  // "" when all went well. What `keepGoing` throws ends the download and reaches the caller.
  virtual std::string Download(const std::string& url, const std::string& targetFile,
                               const std::function<bool()>& keepGoing) = 0;

  // How fetching a page ended.
  struct Page {
    std::string problem;    // as from Download
    bool tooLarge = false;  // that is the problem
    std::string charset;    // in which the server says that it is written; "" when it does not say so
  };
  // Fetches a page for reading, as Download does. What is larger than `mostBytes` is fetched no further.
  virtual Page FetchPage(const std::string& url, const std::string& targetFile, std::uintmax_t mostBytes,
                         const std::function<bool()>& keepGoing) = 0;
};

}  // namespace lorelin
