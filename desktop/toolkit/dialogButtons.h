#pragma once

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/sizer.h>

namespace lorelin {

struct DialogButtons {
  wxButton* ok = nullptr;      // Command1, the default button
  wxButton* cancel = nullptr;  // Command2, also Escape; it closes the dialog by itself
  wxButton* sample = nullptr;  // lets the user hear what is shown
};

// Adds the row of buttons at the end of the dialog's sizer. The dialog owns them.
[[nodiscard]] DialogButtons AddDialogButtons(wxDialog& dialog, wxSizer& sizer);

}  // namespace lorelin
