#include "desktop/toolkit/WxEventPump.h"

#include <wx/evtloop.h>

#include <gdk/gdk.h>

#include <vector>

namespace lorelin {

// There is no look at more than the first event of the queue, so all are taken out and put back.
bool WxEventPump::EscapeIsWaiting() {
  GdkDisplay* const display = gdk_display_get_default();
  if (display == nullptr) return false;
  std::vector<GdkEvent*> events;
  while (GdkEvent* const event = gdk_display_get_event(display)) events.push_back(event);
  bool found = false;
  for (GdkEvent* const event : events) {
    found = found || (event->type == GDK_KEY_PRESS && event->key.keyval == GDK_KEY_Escape);
    gdk_display_put_event(display, event);
    gdk_event_free(event);
  }
  return found;
}

void WxEventPump::Repaint() {
  const OnlyDrawing onlyDrawing;
  wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
  if (loop != nullptr) loop->YieldFor(wxEVT_CATEGORY_UI);
}

}  // namespace lorelin
