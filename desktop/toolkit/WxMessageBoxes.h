#pragma once

#include <wx/window.h>

#include "ports/MessageBoxes.h"

namespace lorelin {

class WxMessageBoxes final : public MessageBoxes {
 public:
  // The window that the boxes belong to from now on; none at first.
  void SetParent(wxWindow* parent) { parent_ = parent; }
  MessageAnswer Show(std::string_view text, std::string_view title, MessageIcon icon,
                     MessageButtons buttons) override;
  MessageAnswer Choose(std::string_view text, std::string_view title, const MessageChoices& choices) override;

 private:
  wxWindow* parent_ = nullptr;
};

}  // namespace lorelin
