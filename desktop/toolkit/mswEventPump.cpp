#include "desktop/toolkit/WxEventPump.h"

#include <wx/app.h>
#include <wx/msw/wrapwin.h>

namespace lorelin {

// The toolkit's own way would let posted tasks in as well, and a hook of its does whenever a message is
// taken.
void WxEventPump::Repaint() {
  const OnlyDrawing onlyDrawing;
  wxTheApp->SuspendProcessingOfPendingEvents();
  MSG message{};
  while (PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) != FALSE) DispatchMessageW(&message);
  wxTheApp->ResumeProcessingOfPendingEvents();
}

bool WxEventPump::EscapeIsWaiting() {
  MSG message{};
  return PeekMessageW(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_NOREMOVE) != FALSE &&
         message.wParam == VK_ESCAPE;
}

}  // namespace lorelin
