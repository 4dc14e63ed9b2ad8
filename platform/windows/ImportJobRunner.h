#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/common/importConversation.h"
#include "ports/ImportProcess.h"

namespace lorelin {

// Runs lorelin-import.exe as a child that writes to a pipe, in a job that holds it: little memory and
// computing time, no process of its own, no desktop, clipboard or global names, and it ends with its parent.
// Unlike on Linux, the system keeps it from neither files nor connections: what a hostile document made it
// do, it would do with the user's rights.
class ImportJobRunner final : public ImportProcess {
 public:
  explicit ImportJobRunner(std::string importFile) : ImportJobRunner(std::move(importFile), ImportLimits{}) {}
  ImportJobRunner(std::string importFile, ImportLimits limits)
      : importFile_(std::move(importFile)), limits_(limits) {}

  Answer Run(const Job& job, const std::function<bool(int percent)>& progress) override;

 private:
  const std::string importFile_;
  const ImportLimits limits_;
};

}  // namespace lorelin
