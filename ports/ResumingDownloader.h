#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace lorelin {

// How fetching a file ended. `detail` is the system's word for it, for the log.
struct DownloadEnd {
  enum class Kind {
    Complete,
    Cancelled,
    Cut,          // no connection, or it broke off: what has arrived stays
    Refused,      // the server answered, but not with the file
    TooLarge,     // the file is larger than was announced: nothing of it stays
    DiskFull,     // what has arrived stays
    NotWritable,  // the file cannot be written where it is to be
    Busy,         // somebody else is fetching the same file
    Impossible,   // this system lacks what it takes
  };
  Kind kind = Kind::Complete;
  std::string detail;
};

// Port: fetching a large file in several attempts. User-interface thread only.
class ResumingDownloader {
 public:
  virtual ~ResumingDownloader() = default;
  // Fetches an http or https address, redirects followed, into the file `part` (UTF-8), which keeps what has
  // arrived when the attempt ends early: the next attempt goes on behind it. Where the server cannot do that,
  // it begins anew. `keepGoing` is called at least every 50 ms with the bytes that are there; it may let
  // events in, and ends the attempt when it answers false. What `keepGoing` throws ends it as well and
  // reaches the caller. A failure goes to the log.
  virtual DownloadEnd Resume(const std::string& url, const std::string& part, std::uintmax_t mostBytes,
                             const std::function<bool(std::uintmax_t there)>& keepGoing) = 0;
};

}  // namespace lorelin
