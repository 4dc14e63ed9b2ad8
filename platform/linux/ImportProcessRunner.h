#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/common/importConversation.h"
#include "ports/ImportProcess.h"

namespace lorelin {

// Runs lorelin-import as a child that writes to a pipe. It ends with its parent.
class ImportProcessRunner final : public ImportProcess {
 public:
  using Limits = ImportLimits;

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
