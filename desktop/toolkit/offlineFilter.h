#pragma once

#include <wx/webview.h>

#include <string>

namespace lorelin {

// Blocks every request of the view that would leave the machine: images, scripts, fetches, navigation. The
// rule is compiled in the background into `folder` and holds from then on.
void BlockNetwork(wxWebView& view, const std::string& folder);

}  // namespace lorelin
