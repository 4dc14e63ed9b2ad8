#include "desktop/toolkit/WxEventPump.h"

#include <wx/app.h>
#include <wx/apptrait.h>
#include <wx/evtloop.h>
#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#endif

#include <exception>
#include <memory>
#include <utility>

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

#else

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
