#pragma once

#include <memory>
#include <string>

#include "ports/ForegroundWindow.h"
#include "ports/Log.h"

namespace lorelin {

// What window managers tell (Extended Window Manager Hints 1.5: _NET_ACTIVE_WINDOW, _NET_WM_NAME; else
// WM_NAME) over a connection of its own to the X server. The connection is made at the first question.
class XcbForegroundWindow final : public ForegroundWindow {
 public:
  // Does not own the log.
  explicit XcbForegroundWindow(Log& log);
  ~XcbForegroundWindow() override;
  XcbForegroundWindow(const XcbForegroundWindow&) = delete;
  XcbForegroundWindow& operator=(const XcbForegroundWindow&) = delete;

  std::string Title() override;
  std::string Obstacle() override;

 private:
  class Display;

  [[nodiscard]] bool Connected();

  Log& log_;
  std::unique_ptr<Display> display_;
  bool told_ = false;
};

}  // namespace lorelin
