#pragma once

#include <functional>
#include <string>

namespace lorelin {

// Port: the process that reads documents of foreign formats, one file a run.
class ImportProcess {
 public:
  struct Job {
    std::string path{};           // UTF-8, either separator
    bool articleOnly = false;     // of a page of the web: what surrounds the article is left out
    bool recognisePages = false;  // pictures of pages are read by the system's text recognition
    std::string source{};         // the address that a page of the web came from, "" for none
    std::string charset{};        // in which its server says that it is written, "" when it does not say so
  };
  struct Answer {
    std::string bytes;    // what the process answered, see ReadImportAnswer
    std::string problem;  // a German sentence when it gave none: it ended, hung or could not be started
  };

  virtual ~ImportProcess() = default;
  // Runs the process to its end. `progress` is called at least every 100 ms, on the caller's thread, with the
  // per cent that are done, or -1 while that is not known; it may let events in, and ends the process when it
  // answers false; the problem is "" then as well as the bytes. From any thread; what `progress` throws ends
  // the process and reaches the caller.
  [[nodiscard]] virtual Answer Run(const Job& job, const std::function<bool(int percent)>& progress) = 0;
};

}  // namespace lorelin
