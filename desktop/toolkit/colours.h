#pragma once

#include <wx/colour.h>
#include <wx/window.h>
#include <cstdint>

#include "base/contrast.h"
#include "richtext/RichText.h"

namespace lorelin {

inline constexpr double kReadableContrast = 3.0;  // of large letters, after WCAG 2.1

[[nodiscard]] inline wxColour WxColourOf(std::uint32_t colour) {
  return {static_cast<unsigned char>(colour >> 16), static_cast<unsigned char>(colour >> 8),
          static_cast<unsigned char>(colour)};
}

[[nodiscard]] inline Colour ColourOf(const wxColour& colour) {
  return static_cast<Colour>(colour.Red()) << 16U | static_cast<Colour>(colour.Green()) << 8U | colour.Blue();
}

// What letters of the document need to be shown in their own colour. Who chose a ground wants to read all.
[[nodiscard]] inline double LeastContrast(const wxWindow& window) {
  return window.UseBgCol() ? kTextContrast : kReadableContrast;
}

}  // namespace lorelin
