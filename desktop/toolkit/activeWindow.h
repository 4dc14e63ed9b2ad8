#pragma once

#include <wx/window.h>

namespace lorelin {

// The window that a dialog belongs to: the one that the user works in, else `fallback` when that is shown.
[[nodiscard]] wxWindow* OwnerOfDialog(wxWindow* fallback);

}  // namespace lorelin
