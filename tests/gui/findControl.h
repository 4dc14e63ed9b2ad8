#pragma once

#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/window.h>

#include <string>

#include "desktop/toolkit/text.h"

namespace lorelin {

// The control with this name below `parent`.
template <typename Control>
Control& FindControl(wxWindow& parent, const char* name) {
  auto* const found = dynamic_cast<Control*>(wxWindow::FindWindowByName(name, &parent));
  if (found == nullptr) throw std::runtime_error(std::string("no control ") + name);
  return *found;
}

// Presses the button with this caption below `parent`, as a click would.
inline void PressButton(wxWindow& parent, const std::string& caption) {
  for (wxWindow* const child : parent.GetChildren()) {
    auto* const button = dynamic_cast<wxButton*>(child);
    if (button == nullptr || FromWx(wxControl::RemoveMnemonics(button->GetLabel())) != caption) continue;
    ASSERT_TRUE(button->IsEnabled()) << caption;
    wxCommandEvent event(wxEVT_BUTTON, button->GetId());
    event.SetEventObject(button);
    button->ProcessWindowEvent(event);
    return;
  }
  ADD_FAILURE() << "no button " << caption;
}

}  // namespace lorelin
