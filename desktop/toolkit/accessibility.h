#pragma once

#include <wx/window.h>

#include <string_view>

namespace lorelin {

// The name under which assistive technology knows the control, for one whose own text does not say it.
void SetAccessibleName(wxWindow& window, std::string_view name);

// The text that explains the control further, read behind its name.
void SetAccessibleDescription(wxWindow& window, std::string_view description);

// What kind of thing a control is to assistive technology, where the toolkit says something else or nothing.
enum class AccessibleRole { Dialog, StatusBar, Notification };
void SetAccessibleRole(wxWindow& window, AccessibleRole role);

// Has a screen reader say the text of the control now, wherever the focus is.
void Announce(wxWindow& window);

}  // namespace lorelin
