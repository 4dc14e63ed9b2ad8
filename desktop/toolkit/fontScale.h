#pragma once

#include <wx/display.h>
#include <wx/window.h>

#include <algorithm>

namespace lorelin {

// The size of the font that this system's windows usually have.
[[nodiscard]] double UsualPoints();

// How many times larger than usual the user's font is; sizes that hold text grow with it. At least 1.
[[nodiscard]] inline double FontScale(const wxWindow& window) {
  return std::max(1.0, window.GetFont().GetFractionalPointSize() / UsualPoints());
}

// The size in pixels that has room for as much text as this one has at the usual font, but not more than the
// screen has.
[[nodiscard]] inline wxSize ScaledByFont(const wxWindow& window, const wxSize& usual) {
  const wxSize wanted = window.FromDIP(usual) * FontScale(window);
  wxSize size = wxDisplay(&window).GetClientArea().GetSize();
  size.DecTo(wanted);
  return size;
}

}  // namespace lorelin
