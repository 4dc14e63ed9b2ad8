#pragma once

#include <wx/button.h>

namespace lorelin {

// A push button that is but its text, to the left, until the mouse or the focus is on it, owned by its
// parent. What is too long ends in an ellipsis.
[[nodiscard]] wxButton* NewFlatButton(wxWindow* parent, const wxString& caption);

// From such a button's left edge to its text, in the pixels of this window.
[[nodiscard]] int FlatButtonMargin(const wxWindow& window);

}  // namespace lorelin
