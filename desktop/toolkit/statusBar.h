#pragma once

#include <wx/frame.h>
#include <wx/statusbr.h>

namespace lorelin {

// Gives the frame a status bar with three fields, the first as wide as `sample`, that assistive technology
// can read field by field. Cuts what is too long with an ellipsis.
wxStatusBar* MakeStatusBar(wxFrame& frame, const wxString& sample);

// Shows the text in the second field and has it read out by a screen reader, if it is new.
void ShowStatus(wxStatusBar& bar, const wxString& text);

// The same for what stands in the third field, which is as wide as its text but leaves the second half of the
// bar.
void ShowNotice(wxStatusBar& bar, const wxString& text);

}  // namespace lorelin
