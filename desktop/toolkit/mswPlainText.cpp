#include "desktop/toolkit/plainText.h"

namespace lorelin {

wxStaticText* NewPlainText(wxWindow* parent, const wxString& text, long style, const wxString& name) {
  return new wxStaticText(parent, wxID_ANY, text, wxDefaultPosition, wxDefaultSize, style, name);
}

}  // namespace lorelin
