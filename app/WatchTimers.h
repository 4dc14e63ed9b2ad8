#pragma once

#include "documents/Recovery.h"
#include "extensions/modAddin.h"
#include "monitor/DesktopMonitor.h"
#include "ports/Log.h"
#include "ports/MainView.h"
#include "settings/SettingsStore.h"

namespace lorelin {

// The window's timers: when they run, and what happens at a tick. User-interface thread only.
class WatchTimers {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    MainView& view;
    SettingsStore& settings;
    ModAddin& extensions;
    DesktopMonitor& monitor;
    Recovery& recovery;
    Log& log;
  };

  explicit WatchTimers(Parts parts) : parts_(parts) {}

  // Switches the timer on when the settings want it.
  void Start(WatchTimer timer);
  // Switches both watching timers on or off as the settings say.
  void FollowSettings();
  void Ticked(WatchTimer timer);

 private:
  [[nodiscard]] bool IsWanted(WatchTimer timer);

  Parts parts_;
};

}  // namespace lorelin
