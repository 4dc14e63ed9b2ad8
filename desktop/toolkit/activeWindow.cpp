#include "desktop/toolkit/activeWindow.h"

#include <wx/utils.h>

namespace lorelin {

wxWindow* OwnerOfDialog(wxWindow* fallback) {
  wxWindow* const active = wxGetTopLevelParent(wxGetActiveWindow());
  if (active != nullptr && active->IsShown()) return active;
  return fallback != nullptr && fallback->IsShown() ? fallback : nullptr;
}

}  // namespace lorelin
