#pragma once

#include <wx/frame.h>

#include <functional>

#include "ports/RemoteControl.h"

namespace lorelin {

// The media keys of the keyboard, whichever program is in front; keys that another program has taken stay
// there. To be called once for each window. Where the desktop brings the keys in another way it does nothing.
void OnMediaKeys(wxFrame& frame, const std::function<void(RemoteRequest)>& handler);

}  // namespace lorelin
