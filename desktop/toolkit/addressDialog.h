#pragma once

#include <wx/window.h>

#include <optional>
#include <string>

namespace lorelin {

// Asks for an address of the web, modal; nothing when the user cancels.
[[nodiscard]] std::optional<std::string> AskForWebAddress(wxWindow* parent, const std::string& proposed);

}  // namespace lorelin
