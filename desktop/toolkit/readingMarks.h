#pragma once

#include <wx/textctrl.h>

#include <memory>

#include "ports/ReadingMarks.h"

namespace lorelin {

// The marks of what is read in a multi-line text control. The control has to outlive the object.
[[nodiscard]] std::unique_ptr<ReadingMarks> MakeReadingMarks(wxTextCtrl& control);

}  // namespace lorelin
