#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include "ports/ImportProcess.h"

namespace lorelin {

// Runs lorelin-import as a child that writes to a pipe: lines "progress N", then a line "answer BYTES" and
// that many bytes. It ends with its parent.
class ImportProcessRunner final : public ImportProcess {
 public:
  struct Limits {
    std::chrono::milliseconds silence{60000};  // without a line of progress
    std::size_t answer = std::size_t{256} << 20U;
  };

  explicit ImportProcessRunner(std::string importFile)
      : ImportProcessRunner(std::move(importFile), Limits{}) {}
  ImportProcessRunner(std::string importFile, Limits limits)
      : importFile_(std::move(importFile)), limits_(limits) {}

  Answer Run(const Job& job, const std::function<bool(int percent)>& progress) override;

 private:
  const std::string importFile_;
  const Limits limits_;
};

}  // namespace lorelin
