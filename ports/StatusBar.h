#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// Port: the status bar. The first panel belongs to the character count, the message has a panel of its own.
// Notices say what is true for a time; they stand beside the message whatever that is.
class StatusBar {
 public:
  virtual ~StatusBar() = default;
  virtual void SetMessage(std::string_view text) = 0;
  // What was set last, by whomever.
  [[nodiscard]] virtual std::string Message() = 0;
  // The notice with this name, which is not shown; "" takes it away.
  virtual void SetNotice(std::string_view name, std::string_view text) = 0;
  virtual void SetFirstPanel(std::string_view text) = 0;
};

}  // namespace lorelin
