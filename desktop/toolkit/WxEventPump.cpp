#include "desktop/toolkit/WxEventPump.h"

#include <wx/app.h>
#include <wx/apptrait.h>
#include <wx/evtloop.h>

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
