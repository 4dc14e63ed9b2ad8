#pragma once

#include <string_view>

namespace lorelin {

// Port: the status bar. The first panel belongs to the character count, the message has a panel of its own.
class StatusBar {
 public:
  virtual ~StatusBar() = default;
  virtual void SetMessage(std::string_view text) = 0;
  virtual void SetFirstPanel(std::string_view text) = 0;
};

}  // namespace lorelin
