#pragma once

#include <wx/toolbar.h>

#include <string_view>

namespace lorelin {

// Call after Realize: gives the toolbar its name for assistive technology, and every button only the room
// that its own caption takes.
void FinishToolbar(wxToolBar& bar, std::string_view name);

}  // namespace lorelin
