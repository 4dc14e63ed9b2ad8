#pragma once

#include <wx/colour.h>

#include "richtext/RichText.h"

namespace lorelin {

inline constexpr double kReadableContrast = 3.0;  // of luminances, after WCAG 2.1

[[nodiscard]] inline wxColour WxColourOf(Colour colour) {
  return {static_cast<unsigned char>(colour >> 16), static_cast<unsigned char>(colour >> 8),
          static_cast<unsigned char>(colour)};
}

// Of the luminances of two colours, from 1 on.
[[nodiscard]] inline double Contrast(const wxColour& a, const wxColour& b) {
  const double first = a.GetLuminance() + 0.05;
  const double second = b.GetLuminance() + 0.05;
  return first > second ? first / second : second / first;
}

}  // namespace lorelin
