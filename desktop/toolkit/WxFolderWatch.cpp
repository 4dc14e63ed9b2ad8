#include "desktop/toolkit/WxFolderWatch.h"

#include <wx/evtloop.h>
#include <wx/filename.h>

#include <utility>

#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

constexpr int kPause = 200;  // milliseconds; whoever copies files copies several

}  // namespace

WxFolderWatch::WxFolderWatch(std::string folder, std::function<void()> changed)
    : folder_(std::move(folder)), changed_(std::move(changed)) {
  pause_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { changed_(); });
  begin_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Begin(); });
  CallAfter([this] { Begin(); });
}

WxFolderWatch::~WxFolderWatch() = default;

// The watcher wants a running event loop; what is handled during the start is not in one yet.
void WxFolderWatch::Begin() {
  if (wxEventLoopBase::GetActive() == nullptr) {
    begin_.StartOnce(kPause);
    return;
  }
  const wxString folder = ToWx(folder_);
  if (wxFileName::DirExists(folder))
    events_ = TellOfNames(folder, *this, [this] { pause_.StartOnce(kPause); });
}

}  // namespace lorelin
