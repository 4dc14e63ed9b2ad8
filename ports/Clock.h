#pragma once

#include <chrono>

namespace lorelin {

// Local wall-clock time. month 1..12, day 1..31, hour 0..23, minute 0..59, second 0..59; weekday 1..7, Sunday
// = 1.
struct LocalTime {
  int year = 2000;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
  int weekday = 7;
};

// Port: time.
class Clock {
 public:
  virtual ~Clock() = default;
  [[nodiscard]] virtual LocalTime Now() = 0;
  // Never goes back; for measuring spans.
  [[nodiscard]] virtual std::chrono::steady_clock::time_point Steady() = 0;
};

}  // namespace lorelin
