#pragma once

#include <functional>

#include "ports/Automation.h"
#include "ports/Log.h"

namespace lorelin {

// Objects of COM classes by their ProgID, bound late (IDispatch). While a server in a process of its own
// keeps the program waiting, only drawing goes on; after 10 s the call is cancelled. A server in this process
// cannot be interrupted.
class ComAutomation final : public Automation {
 public:
  // Does not own the log. The thread is a single-threaded apartment.
  explicit ComAutomation(Log& log);
  ~ComAutomation() override;
  ComAutomation(const ComAutomation&) = delete;
  ComAutomation& operator=(const ComAutomation&) = delete;

  std::unique_ptr<AutomationObject> CreateObject(std::string_view identifier) override;
  void WhileWaiting(const std::function<bool()>& work) override { work_ = work; }

 private:
  class Patience;

  Log& log_;
  std::function<bool()> work_;
  Patience* patience_;  // COM's reference to it lasts as long as this object
};

}  // namespace lorelin
