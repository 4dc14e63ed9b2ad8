#pragma once

#include <gtk/gtk.h>

namespace lorelin {

// The message box that is shown, or null.
[[nodiscard]] inline GtkDialog* OpenBox() {
  GList* const windows = gtk_window_list_toplevels();
  GtkDialog* found = nullptr;
  for (GList* each = windows; each != nullptr; each = each->next) {
    if (GTK_IS_MESSAGE_DIALOG(each->data) && gtk_widget_get_mapped(GTK_WIDGET(each->data)) != FALSE)
      found = GTK_DIALOG(each->data);
  }
  g_list_free(windows);
  return found;
}

}  // namespace lorelin
