#pragma once

#include <wx/msgdlg.h>

#include "ports/MessageBoxes.h"

namespace lorelin {

// The system's own message box, with the drawing that the system itself may leave out.
class MessageDialog final : public wxMessageDialog {
 public:
  // `buttons` are the toolkit's flags of buttons.
  MessageDialog(wxWindow* owner, const wxString& text, const wxString& title, long buttons, MessageIcon icon);
  int ShowModal() override;

 private:
  MessageIcon icon_;
};

}  // namespace lorelin
