#pragma once

#include <string>

namespace lorelin {

// Port: what is selected in another program. User-interface thread only; answers within a second.
class SelectedText {
 public:
  virtual ~SelectedText() = default;
  // "" when nothing is, or the system does not tell.
  [[nodiscard]] virtual std::string Text() = 0;
};

}  // namespace lorelin
