#pragma once

#include <wx/bmpbndl.h>

#include <string_view>

namespace lorelin {

// The SVG text of a drawing in packaging/icons, by its file name without ending; "" when there is none.
[[nodiscard]] std::string_view IconSource(std::string_view name);

// The drawing at every size the screen asks for, in the colours of the light or dark theme. `size` is that at
// 100 %.
[[nodiscard]] wxBitmapBundle Icon(std::string_view name, int size);

}  // namespace lorelin
