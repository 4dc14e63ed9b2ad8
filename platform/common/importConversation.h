#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "ports/ImportProcess.h"

namespace lorelin {

// What the process that runs lorelin-import takes from it, on every system: lines "progress N", then a line
// "answer BYTES" and that many bytes.

struct ImportLimits {
  std::chrono::milliseconds silence{60000};  // without a line of progress
  std::size_t answer = std::size_t{256} << 20U;
};

// Waits so long for output of the child and appends what is there, at most `most` bytes; false at its end.
using ImportReading =
    std::function<bool(std::string& bytes, std::chrono::milliseconds wait, std::size_t most)>;

// How the child is started; its path in UTF-8.
[[nodiscard]] std::vector<std::string> ImportArguments(const std::string& program,
                                                       const ImportProcess::Job& job);

// Hears the child to its end, as ImportProcess::Run says.
[[nodiscard]] ImportProcess::Answer HearImport(const ImportReading& read, const ImportLimits& limits,
                                               const std::function<bool(int percent)>& progress);

[[nodiscard]] ImportProcess::Answer ImportNotStarted();

}  // namespace lorelin
