#include "desktop/toolkit/toolBar.h"

#include <gtk/gtk.h>

#include <string>

#include "desktop/toolkit/accessibility.h"

namespace lorelin {
namespace {

void FinishPart(GtkWidget* widget, gpointer name) {
  if (GTK_IS_TOOL_ITEM(widget)) gtk_tool_item_set_homogeneous(GTK_TOOL_ITEM(widget), FALSE);
  if (!GTK_IS_TOOLBAR(widget)) return;
  atk_object_set_name(gtk_widget_get_accessible(widget), static_cast<const std::string*>(name)->c_str());
  gtk_container_foreach(GTK_CONTAINER(widget), &FinishPart, name);
}

}  // namespace

// With a large font the buttons would be pushed out of the window by the widest of them.
void FinishToolbar(wxToolBar& bar, std::string_view name) {
  std::string text(name);
  gtk_container_foreach(GTK_CONTAINER(static_cast<GtkWidget*>(bar.GetHandle())), &FinishPart, &text);
}

}  // namespace lorelin
