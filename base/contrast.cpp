#include "base/contrast.h"

#include <algorithm>
#include <cmath>

namespace lorelin {
namespace {

double Linear(std::uint32_t part) {
  const double value = (part & 0xFFU) / 255.0;
  return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(std::uint32_t colour) {
  return 0.2126 * Linear(colour >> 16U) + 0.7152 * Linear(colour >> 8U) + 0.0722 * Linear(colour);
}

}  // namespace

double ContrastOf(std::uint32_t a, std::uint32_t b) {
  const double first = Luminance(a) + 0.05;
  const double second = Luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

}  // namespace lorelin
