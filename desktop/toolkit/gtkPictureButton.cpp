#include "desktop/toolkit/pictureButton.h"

#include <gtk/gtk.h>

namespace lorelin {

// A theme draws a light area below a button under the mouse, and its frame of the focus in any colour.
void MakeReadableOnPicture(wxButton& button) {
  static constexpr const char* kStyle =
      "button, button:hover, button:active, button:focus, button:backdrop {"
      "  background: none; border-color: transparent; box-shadow: none; text-shadow: none; }"
      "button:hover { background-color: rgba(0, 0, 0, 0.35); }"
      "button:active { background-color: rgba(0, 0, 0, 0.5); }"
      "button:focus { outline: 2px solid white; outline-offset: 1px; }";
  GtkCssProvider* const provider = gtk_css_provider_new();
  gtk_css_provider_load_from_data(provider, kStyle, -1, nullptr);
  gtk_style_context_add_provider(gtk_widget_get_style_context(button.GetHandle()),
                                 GTK_STYLE_PROVIDER(provider), GTK_STYLE_PROVIDER_PRIORITY_USER);
  g_object_unref(provider);
}

}  // namespace lorelin
