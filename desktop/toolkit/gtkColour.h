#pragma once

#include <gdk/gdk.h>

#include "richtext/RichText.h"

namespace lorelin {

inline GdkRGBA RgbaOf(Colour colour) {
  return {.red = (colour >> 16 & 0xFF) / 255.0,
          .green = (colour >> 8 & 0xFF) / 255.0,
          .blue = (colour & 0xFF) / 255.0,
          .alpha = 1.0};
}

}  // namespace lorelin
