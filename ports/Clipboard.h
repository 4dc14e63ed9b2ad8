#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// Port: the system clipboard as plain text, UTF-8 with "\n" line ends.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  // "" when the clipboard holds no text.
  [[nodiscard]] virtual std::string Text() = 0;
  virtual void SetText(std::string_view text) = 0;
};

}  // namespace lorelin
