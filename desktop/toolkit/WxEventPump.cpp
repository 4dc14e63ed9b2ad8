#include "desktop/toolkit/WxEventPump.h"

#include <wx/app.h>
#include <wx/apptrait.h>
#include <wx/evtloop.h>
#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#else
#include <gdk/gdk.h>
#endif

#include <exception>
#include <memory>
#include <utility>
#include <vector>

namespace lorelin {
namespace {

constexpr unsigned long kLongestSleep = 10;  // milliseconds

}  // namespace

void WxEventPump::RunPendingEvents() {
  ++depth_;
  std::unique_ptr<wxEventLoopBase> own;
  std::unique_ptr<wxEventLoopActivator> activator;
  if (wxEventLoopBase::GetActive() == nullptr) {
    // The load sequence runs before the main loop does.
    own.reset(wxTheApp->GetTraits()->CreateEventLoop());
    activator = std::make_unique<wxEventLoopActivator>(own.get());
  }
  wxEventLoopBase& loop = *wxEventLoopBase::GetActive();
  if (loop.Pending() || wxTheApp->HasPendingEvents()) {
    loop.YieldFor(wxEVT_CATEGORY_ALL);
  } else {
    loop.DispatchTimeout(kLongestSleep);
  }
  wxTheApp->ProcessPendingEvents();
  --depth_;
}

#ifdef __WXMSW__

// The toolkit's own way would let posted tasks in as well, and a hook of its does whenever a message is
// taken.
void WxEventPump::Repaint() {
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

#else

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
  wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
  if (loop != nullptr) loop->YieldFor(wxEVT_CATEGORY_UI);
}

#endif

void WxEventPump::Post(std::function<void()> task) {
  wxTheApp->CallAfter([&log = log_, task = std::move(task)] {
    try {
      task();
    } catch (const std::exception& error) {
      log.Write(error.what());
    }
  });
}

}  // namespace lorelin
