#pragma once

#include <wx/window.h>

#include <string_view>

namespace lorelin {

// The name under which assistive technology knows the control, for one whose own text does not say it.
void SetAccessibleName(wxWindow& window, std::string_view name);

}  // namespace lorelin
