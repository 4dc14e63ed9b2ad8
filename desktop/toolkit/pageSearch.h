#pragma once

#include <wx/webview.h>

namespace lorelin {

// Shows the next place of the text in the page, or the one before it, and round the ends. False when there is
// none. Lets window events run until the page has answered, a second at most.
[[nodiscard]] bool FindInPage(wxWebView& view, const wxString& text, bool matchCase, bool backwards);

}  // namespace lorelin
