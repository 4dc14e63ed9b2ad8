#pragma once

#include <wx/menuitem.h>

#include <string_view>

namespace lorelin {

// Shows a key ("Ctrl+X") beside the entry of a menu, which does not take the key for it.
void ShowKey(wxMenuItem& item, std::string_view key);

}  // namespace lorelin
