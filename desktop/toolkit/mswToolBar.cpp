#include "desktop/toolkit/toolBar.h"

#include "desktop/toolkit/accessibility.h"

namespace lorelin {

void FinishToolbar(wxToolBar& bar, std::string_view name) {
  SetAccessibleName(bar, name);
}

}  // namespace lorelin
