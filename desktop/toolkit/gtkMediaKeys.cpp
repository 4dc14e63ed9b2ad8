#include "desktop/toolkit/mediaKeys.h"

namespace lorelin {

// The desktop hands them to whatever is a player on the session bus.
void OnMediaKeys(wxFrame&, const std::function<void(RemoteRequest)>&) {}

}  // namespace lorelin
