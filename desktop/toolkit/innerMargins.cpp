#include "desktop/toolkit/innerMargins.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#elif defined(__WXMSW__)
#include <wx/msw/wrapwin.h>
#endif

namespace lorelin {

#ifdef __WXGTK__

// The toolkit's own margins have no effect on a GtkTextView.
void SetInnerMargins(wxTextCtrl& control, int horizontal, int vertical) {
  GtkWidget* const scrolled = static_cast<GtkWidget*>(control.GetHandle());
  GtkWidget* const view = GTK_IS_BIN(scrolled) ? gtk_bin_get_child(GTK_BIN(scrolled)) : scrolled;
  if (!GTK_IS_TEXT_VIEW(view)) return;
  GtkTextView* const text = GTK_TEXT_VIEW(view);
  gtk_text_view_set_left_margin(text, horizontal);
  gtk_text_view_set_right_margin(text, horizontal);
  gtk_text_view_set_top_margin(text, vertical);
  gtk_text_view_set_bottom_margin(text, vertical);
}

#elif defined(__WXMSW__)

// EM_SETMARGINS would know no vertical ones, and some systems make indents of the text of it.
void SetInnerMargins(wxTextCtrl& control, int horizontal, int vertical) {
  control.Bind(wxEVT_SIZE, [&control, horizontal, vertical](wxSizeEvent& event) {
    event.Skip();
    const wxSize size = control.GetClientSize();
    RECT inside{.left = horizontal, .top = vertical, .right = size.x - horizontal, .bottom = size.y};
    SendMessageW(static_cast<HWND>(control.GetHandle()), EM_SETRECT, 0, reinterpret_cast<LPARAM>(&inside));
  });
}

#endif

}  // namespace lorelin
