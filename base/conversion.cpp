#include "base/conversion.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include "base/RuntimeError.h"

namespace lorelin {
namespace {

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

std::int32_t RoundToLong(double number) {
  const double rounded = std::nearbyint(number);
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max())) {
    throw RuntimeError(ErrorNumber::Overflow);
  }
  return static_cast<std::int32_t>(rounded);
}

double ToDouble(std::string_view text) {
  std::string number(Trimmed(text));
  std::replace(number.begin(), number.end(), ',', '.');
  if (number.starts_with('+') && !number.starts_with("+-")) number.erase(0, 1);
  double value = 0;
  const char* const end = number.data() + number.size();
  const auto [stop, error] = std::from_chars(number.data(), end, value, std::chars_format::fixed);
  if (stop != end || number.find_first_of("0123456789") == std::string::npos) {
    throw RuntimeError(ErrorNumber::TypeMismatch);
  }
  if (error == std::errc::result_out_of_range) throw RuntimeError(ErrorNumber::Overflow);
  if (error != std::errc{}) throw RuntimeError(ErrorNumber::TypeMismatch);
  return value;
}

std::int32_t ToLong(std::string_view text) {
  return RoundToLong(ToDouble(text));
}

bool IsNumeric(std::string_view text) {
  try {
    (void)ToDouble(text);
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace lorelin
