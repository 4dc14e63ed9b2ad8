#include "desktop/toolkit/innerMargins.h"

#include <gtk/gtk.h>

namespace lorelin {

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

}  // namespace lorelin
