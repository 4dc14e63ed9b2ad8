#pragma once

#include <gio/gio.h>

#include <functional>
#include <string>

#include "ports/ForegroundWindow.h"
#include "ports/Log.h"

namespace lorelin {

// What programs tell assistive technology: their signal Window.Activate on the accessibility bus (AT-SPI 2,
// as in at-spi2-core 2.46), for desktops where no X server knows the windows. The bus is joined at the first
// question; signals arrive on the thread's main context, answers take 200 ms at most.
class AtspiForegroundWindow final : public ForegroundWindow {
 public:
  // Does not own the log.
  explicit AtspiForegroundWindow(Log& log) : log_(log) {}
  ~AtspiForegroundWindow() override;
  AtspiForegroundWindow(const AtspiForegroundWindow&) = delete;
  AtspiForegroundWindow& operator=(const AtspiForegroundWindow&) = delete;

  std::string Title() override;
  std::string Obstacle() override;

 private:
  [[nodiscard]] bool Connected();
  void Join();
  void RegisterEvent();
  void Activated(const char* sender, const char* path);

  Log& log_;
  GDBusConnection* bus_ = nullptr;
  guint subscription_ = 0;
  bool tried_ = false;
  std::string sender_;  // of the window that was activated last
  std::string path_;
};

}  // namespace lorelin
