#include "desktop/toolkit/offlineFilter.h"

#include <exdisp.h>

namespace lorelin {

// The control works offline and asks nobody about scripts that fail.
void BlockNetwork(wxWebView& view, const std::string&) {
  auto* const native = static_cast<IWebBrowser2*>(view.GetNativeBackend());
  if (native == nullptr) return;
  native->put_Offline(VARIANT_TRUE);
  native->put_Silent(VARIANT_TRUE);
}

}  // namespace lorelin
