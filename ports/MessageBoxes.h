#pragma once

#include <string_view>

namespace lorelin {

enum class MessageIcon { None, Information, Question, Exclamation, Critical };
enum class MessageButtons { Ok, YesNo, YesNoCancel };
enum class MessageAnswer { Ok, Yes, No, Cancel };

// Port: modal message boxes. Texts are UTF-8, line breaks are "\n". Returns when the box was closed; window
// events run meanwhile. Closing an Ok box by any means is Ok; Escape in a box with Cancel is Cancel.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  virtual MessageAnswer Show(std::string_view text, std::string_view title, MessageIcon icon,
                             MessageButtons buttons) = 0;
};

}  // namespace lorelin
