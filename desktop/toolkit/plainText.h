#pragma once

#include <wx/stattext.h>

namespace lorelin {

// A text that stands for itself, owned by its parent. Of any other static text, assistive technology takes it
// that it names the control behind it.
[[nodiscard]] wxStaticText* NewPlainText(wxWindow* parent, const wxString& text, long style = 0,
                                         const wxString& name = wxASCII_STR(wxStaticTextNameStr));

}  // namespace lorelin
