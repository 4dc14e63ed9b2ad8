#include <gtk/gtk.h>

#include "desktop/toolkit/PlaceLine.h"

namespace lorelin {

void MakeThin(wxSlider& slider) {
  constexpr const char* kStyle =
      "scale { padding: 0 8px; min-height: 12px; }"
      "scale trough { min-height: 4px; }"
      "scale highlight { min-height: 4px; }"
      "scale slider { min-width: 12px; min-height: 12px; margin: -5px; }";
  GtkCssProvider* const provider = gtk_css_provider_new();
  gtk_css_provider_load_from_data(provider, kStyle, -1, nullptr);
  const auto style = [](GtkWidget* widget, gpointer data) {
    gtk_style_context_add_provider(gtk_widget_get_style_context(widget), GTK_STYLE_PROVIDER(data),
                                   GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  };
  GtkWidget* const widget = static_cast<GtkWidget*>(slider.GetHandle());
  style(widget, provider);
  if (GTK_IS_CONTAINER(widget)) gtk_container_forall(GTK_CONTAINER(widget), style, provider);
  g_object_unref(provider);
  slider.InvalidateBestSize();
}

}  // namespace lorelin
