#pragma once

#include <wx/textctrl.h>

#include <algorithm>

namespace lorelin {

// A field of one line that is high enough for the user's font; the toolkit's own best size may not be.
inline wxTextCtrl* MakeTextField(wxWindow* parent, const char* name, int width = -1) {
  auto* const field = new wxTextCtrl(parent, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize, 0,
                                     wxDefaultValidator, name);
  const int height = std::max(field->GetBestSize().y, field->GetCharHeight() + field->FromDIP(12));
  field->SetMinSize(wxSize(width, height));
  return field;
}

}  // namespace lorelin
