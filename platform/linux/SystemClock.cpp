#include "platform/common/SystemClock.h"

#include <ctime>

namespace lorelin {

LocalTime SystemClock::Now() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {.year = local.tm_year + 1900,
          .month = local.tm_mon + 1,
          .day = local.tm_mday,
          .hour = local.tm_hour,
          .minute = local.tm_min,
          .second = local.tm_sec,
          .weekday = local.tm_wday + 1};
}

}  // namespace lorelin
