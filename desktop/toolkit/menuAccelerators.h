#pragma once

#include <wx/event.h>
#include <wx/frame.h>

namespace lorelin {

// Runs the entry of the frame's menus that has this key, before the control with the focus can take it for
// something else, as a text control does with F7. False when there is none, or it is greyed.
[[nodiscard]] bool RunMenuKey(wxFrame& frame, const wxKeyEvent& event);

}  // namespace lorelin
