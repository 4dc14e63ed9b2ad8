#pragma once

#include <string_view>

namespace lorelin {

enum class MessageIcon { None, Information, Question, Exclamation, Critical };
// Of the last one Enter answers No.
enum class MessageButtons { Ok, YesNo, YesNoCancel, YesNoWarily };
enum class MessageAnswer { Ok, Yes, No, Cancel };

// What the three buttons of a choice say, "&" before the access key.
struct MessageChoices {
  std::string_view yes;
  std::string_view no;
  std::string_view cancel;  // also the answer to Escape
};

// Port: modal message boxes. Texts are UTF-8, line breaks are "\n". Returns when the box was closed; window
// events run meanwhile. Closing an Ok box by any means is Ok; Escape in a box with Cancel is Cancel.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  virtual MessageAnswer Show(std::string_view text, std::string_view title, MessageIcon icon,
                             MessageButtons buttons) = 0;
  // A question with answers of its own.
  virtual MessageAnswer Choose(std::string_view text, std::string_view title,
                               const MessageChoices& choices) = 0;
};

}  // namespace lorelin
