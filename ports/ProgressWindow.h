#pragma once

#include <string_view>

namespace lorelin {

// Port: a window that shows how far something is and can be cancelled. User-interface thread only.
class ProgressWindow {
 public:
  virtual ~ProgressWindow() = default;
  // Shows the window, or its new state: what is done is the part `done` (0 to 1). Lets events in. False when
  // the user wants to stop.
  virtual bool Show(std::string_view text, double done) = 0;
  // Takes the window away; one that is not shown stays so.
  virtual void Close() = 0;
};

}  // namespace lorelin
