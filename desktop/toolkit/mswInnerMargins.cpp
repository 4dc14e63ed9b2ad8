#include "desktop/toolkit/innerMargins.h"

#include <wx/msw/wrapwin.h>

namespace lorelin {

// EM_SETMARGINS would know no vertical ones, and some systems make indents of the text of it.
void SetInnerMargins(wxTextCtrl& control, int horizontal, int vertical) {
  control.Bind(wxEVT_SIZE, [&control, horizontal, vertical](wxSizeEvent& event) {
    event.Skip();
    const wxSize size = control.GetClientSize();
    RECT inside{.left = horizontal, .top = vertical, .right = size.x - horizontal, .bottom = size.y};
    SendMessageW(static_cast<HWND>(control.GetHandle()), EM_SETRECT, 0, reinterpret_cast<LPARAM>(&inside));
  });
}

}  // namespace lorelin
