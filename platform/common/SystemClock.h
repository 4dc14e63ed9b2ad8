#pragma once

#include "ports/Clock.h"

namespace lorelin {

// The system's clocks, in the local time zone. Any thread.
class SystemClock final : public Clock {
 public:
  LocalTime Now() override;
  std::chrono::steady_clock::time_point Steady() override { return std::chrono::steady_clock::now(); }
};

}  // namespace lorelin
