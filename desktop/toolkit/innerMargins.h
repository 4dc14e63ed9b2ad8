#pragma once

#include <wx/textctrl.h>

namespace lorelin {

// Room between the text and the edges of a multi-line control, in pixels.
void SetInnerMargins(wxTextCtrl& control, int horizontal, int vertical);

}  // namespace lorelin
