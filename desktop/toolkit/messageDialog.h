#pragma once

#include <wx/msgdlg.h>

#include <memory>

#include "ports/MessageBoxes.h"

namespace lorelin {

// The toolkit's flag of the icon.
[[nodiscard]] long IconStyle(MessageIcon icon);

// The system's own message box, or one that looks like it where that one cannot show the icon. `buttons` are
// the toolkit's flags of buttons.
[[nodiscard]] std::unique_ptr<wxMessageDialogBase> MakeMessageDialog(wxWindow* owner, const wxString& text,
                                                                     const wxString& title, long buttons,
                                                                     MessageIcon icon);

}  // namespace lorelin
