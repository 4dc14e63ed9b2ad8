#include "desktop/toolkit/layoutPace.h"

namespace lorelin {

// The system's control lays out what is seen.
void LayOutBehindOtherWork(wxTextCtrl&) {}

}  // namespace lorelin
