#pragma once

#include "app/RuntimeError.h"
#include "platform/Automation.h"

namespace lorelin {

// A system without objects of other programs: nothing can be created.
class NullAutomation final : public Automation {
 public:
  std::unique_ptr<AutomationObject> CreateObject(std::string_view) override {
    throw RuntimeError(ErrorNumber::CannotCreateObject);
  }
};

}  // namespace lorelin
