#pragma once

#include <wx/window.h>

namespace lorelin {

// Tells assistive technology that a button is one of several that each show a page, and whether its page is
// the one to be seen.
void SetPageTab(wxWindow& button, bool selected);

}  // namespace lorelin
