#include "desktop/toolkit/messageDialog.h"

#include <wx/generic/msgdlgg.h>

namespace lorelin {

std::unique_ptr<wxMessageDialogBase> MakeMessageDialog(wxWindow* owner, const wxString& text,
                                                       const wxString& title, long buttons,
                                                       MessageIcon icon) {
  const long style = buttons | IconStyle(icon) | wxCENTRE;
  // The boxes of Windows have no drawing for a question any more.
  if (icon == MessageIcon::Question) {
    return std::make_unique<wxGenericMessageDialog>(owner, text, title, style);
  }
  return std::make_unique<wxMessageDialog>(owner, text, title, style);
}

}  // namespace lorelin
