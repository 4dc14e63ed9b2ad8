#pragma once

#include <wx/button.h>

namespace lorelin {

// For a button without a border that stands on a dark picture: whatever the theme, its light text is readable
// under the mouse and when it is pressed, and a light frame shows that it has the focus.
void MakeReadableOnPicture(wxButton& button);

}  // namespace lorelin
