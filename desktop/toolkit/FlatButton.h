#pragma once

#include <wx/button.h>

namespace lorelin {

// A push button that is but its text, to the left, until the mouse or the focus is on it. What is too long
// ends in an ellipsis.
class FlatButton final : public wxButton {
 public:
  FlatButton(wxWindow* parent, const wxString& caption);
  // From the button's left edge to its text, in the pixels of this window.
  [[nodiscard]] static int TextMargin(const wxWindow& window);

#ifdef __WXMSW__
  bool MSWOnDraw(WXDRAWITEMSTRUCT* item) override;

 private:
  bool hovered_ = false;
#endif
};

}  // namespace lorelin
