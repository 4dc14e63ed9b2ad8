#pragma once

#include "ports/ForegroundWindow.h"

namespace lorelin {

// The window manager of Windows (user32). A title is read in the system's 8-bit code page, 254 bytes at most.
class User32ForegroundWindow final : public ForegroundWindow {
 public:
  std::string Title() override;
  std::string Obstacle() override { return {}; }
};

}  // namespace lorelin
