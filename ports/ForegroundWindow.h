#pragma once

#include <string>

namespace lorelin {

// Port: the window that the user works in, of whatever program. User-interface thread only.
class ForegroundWindow {
 public:
  virtual ~ForegroundWindow() = default;
  // "" when there is none, it has no title, or the system does not tell.
  [[nodiscard]] virtual std::string Title() = 0;
  // Why this system tells no titles, as a German sentence; "" when it does.
  [[nodiscard]] virtual std::string Obstacle() = 0;
};

}  // namespace lorelin
