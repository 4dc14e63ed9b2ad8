#pragma once

#include <wx/sizer.h>
#include <wx/window.h>

namespace lorelin {

// Adds the control to a grid of two columns, behind its caption ("&Format:"), whose key leads to it and which
// is its accessible name.
void AddLabelled(wxWindow& control, wxSizer& grid, const char* caption);

}  // namespace lorelin
