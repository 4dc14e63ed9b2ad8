#include "base/clockTime.h"

#include <array>
#include <cstdio>

namespace lorelin {

std::string ClockTime(std::chrono::milliseconds time, int hourDigits) {
  std::array<char, 48> text{};
  const long long all = time.count();
  std::snprintf(text.data(), text.size(), "%0*lld:%02lld:%02lld.%03lld", hourDigits, all / 3600000,
                all / 60000 % 60, all / 1000 % 60, all % 1000);
  return text.data();
}

}  // namespace lorelin
