#include "app/steps.h"

#include <exception>
#include <string>

namespace lorelin {

void Guarded(Log& log, std::string_view what, const std::function<void()>& action) {
  try {
    action();
  } catch (const std::exception& error) {
    log.Write(std::string(what) + ": " + error.what());
  }
}

void RunSteps(Log& log, std::string_view sequence, const std::vector<Step>& steps) {
  for (const Step& step : steps)
    Guarded(log, std::string(sequence) + ", " + std::string(step.name), step.run);
}

}  // namespace lorelin
