#include "platform/common/SystemClock.h"

#include <windows.h>

namespace lorelin {

LocalTime SystemClock::Now() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return {.year = now.wYear,
          .month = now.wMonth,
          .day = now.wDay,
          .hour = now.wHour,
          .minute = now.wMinute,
          .second = now.wSecond,
          .weekday = now.wDayOfWeek + 1};
}

}  // namespace lorelin
