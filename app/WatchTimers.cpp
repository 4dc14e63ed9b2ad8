#include "app/WatchTimers.h"

#include "app/steps.h"

namespace lorelin {

bool WatchTimers::IsWanted(WatchTimer timer) {
  const SettingKey& key =
      timer == WatchTimer::Clipboard ? setting::ReadClipboardOnChange : setting::ReadTitleOnAppChange;
  return IsOn(key, parts_.settings.Get(key));
}

void WatchTimers::Start(WatchTimer timer) {
  if (IsWanted(timer)) parts_.view.EnableTimer(timer, true);
}

void WatchTimers::FollowSettings() {
  for (const WatchTimer timer : {WatchTimer::WindowTitle, WatchTimer::Clipboard})
    parts_.view.EnableTimer(timer, IsWanted(timer));
}

void WatchTimers::Ticked(WatchTimer timer) {
  // The windows are drawn while an extension works; what is new on the desktop has time until the next tick.
  if (timer != WatchTimer::Snapshot && parts_.extensions.IsCalling()) return;
  switch (timer) {
    case WatchTimer::Clipboard:
      return Guarded(parts_.log, "Zwischenablage", [this] { parts_.monitor.LookAtClipboard(); });
    case WatchTimer::WindowTitle:
      return Guarded(parts_.log, "Fenstertitel", [this] { parts_.monitor.LookAtForeground(); });
    case WatchTimer::Snapshot:
      return parts_.recovery.SnapshotDue();
  }
}

}  // namespace lorelin
