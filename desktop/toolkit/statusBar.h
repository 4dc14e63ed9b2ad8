#pragma once

#include <wx/frame.h>
#include <wx/statusbr.h>

namespace lorelin {

// Gives the frame a status bar with its fields, the first as wide as `sample`, that assistive technology
// can read field by field. Cuts what is too long with an ellipsis.
wxStatusBar* MakeStatusBar(wxFrame& frame, const wxString& sample);

// Shows the text in the second field and has it read out by a screen reader, if it is new.
void ShowStatus(wxStatusBar& bar, const wxString& text);

// The same for what stands in the third field, which is as wide as its text but leaves the second half of the
// bar.
void ShowNotice(wxStatusBar& bar, const wxString& text);

// The room for the place of the voice and for its line, in pixels; more than two fifths of the bar the text
// does not get.
void SetPlaceWidths(wxStatusBar& bar, int text, int line);

}  // namespace lorelin
