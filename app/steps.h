#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "ports/Log.h"

namespace lorelin {

// A part of a sequence that has to go on whatever becomes of its parts.
struct Step {
  std::string_view name;
  std::function<void()> run;
};

// Carries out `action`; what it throws goes to the log under the name `what`.
void Guarded(Log& log, std::string_view what, const std::function<void()>& action);

// Carries out every step, one after the other; a failing one is logged and skipped.
void RunSteps(Log& log, std::string_view sequence, const std::vector<Step>& steps);

}  // namespace lorelin
