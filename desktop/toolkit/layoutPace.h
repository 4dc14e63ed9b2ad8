#pragma once

#include <wx/textctrl.h>

namespace lorelin {

// Keeps the window at work while a multi-line text control lays out a long text: its lines are laid out a few
// at a time, behind drawing, keys and every other task, with a pause in between. Until they all are, only the
// scroll bar is not yet what it will be. Call it once, for a control that was created. Where the system's
// control does so by itself, nothing happens.
void LayOutBehindOtherWork(wxTextCtrl& control);

}  // namespace lorelin
