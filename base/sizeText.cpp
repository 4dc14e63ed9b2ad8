#include "base/sizeText.h"

namespace lorelin {

std::string SizeText(std::uintmax_t bytes) {
  constexpr std::uintmax_t kMega = 1000000;
  constexpr std::uintmax_t kTenth = kMega / 10;
  const std::uintmax_t tenths = (bytes + kTenth / 2) / kTenth;
  if (tenths < 100) return std::to_string(tenths / 10) + "," + std::to_string(tenths % 10) + " MB";
  return std::to_string((bytes + kMega / 2) / kMega) + " MB";
}

}  // namespace lorelin
