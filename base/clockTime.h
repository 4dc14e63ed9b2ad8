#pragma once

#include <chrono>
#include <string>

namespace lorelin {

// Hours with at least so many digits, minutes, seconds and thousandths: "1:02:03.004". Not for negative
// times.
[[nodiscard]] std::string ClockTime(std::chrono::milliseconds time, int hourDigits);

}  // namespace lorelin
