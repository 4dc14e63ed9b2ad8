#include "desktop/toolkit/accessibility.h"

#include <gtk/gtk.h>

#include <string>

namespace lorelin {
namespace {

// A control that scrolls is wrapped in one that does not speak, and of a list that opens it is the inner
// button that has the focus.
void NameWidget(GtkWidget* widget, gpointer name) {
  if (AtkObject* const object = gtk_widget_get_accessible(widget)) {
    atk_object_set_name(object, static_cast<const std::string*>(name)->c_str());
  }
  if (GTK_IS_COMBO_BOX(widget) || GTK_IS_BOX(widget))
    gtk_container_forall(GTK_CONTAINER(widget), &NameWidget, name);
  if (GTK_IS_SCROLLED_WINDOW(widget)) gtk_container_foreach(GTK_CONTAINER(widget), &NameWidget, name);
}

// Of a list that opens it is the inner button that has the focus.
void DescribeWidget(GtkWidget* widget, const std::string& description) {
  if (AtkObject* const object = gtk_widget_get_accessible(widget))
    atk_object_set_description(object, description.c_str());
  if (!GTK_IS_COMBO_BOX(widget)) return;
  gtk_container_forall(
      GTK_CONTAINER(widget),
      [](GtkWidget* child, gpointer text) { DescribeWidget(child, *static_cast<const std::string*>(text)); },
      const_cast<std::string*>(&description));
}

}  // namespace

void SetAccessibleName(wxWindow& window, std::string_view name) {
  std::string text(name);
  NameWidget(static_cast<GtkWidget*>(window.GetHandle()), &text);
}

void SetAccessibleDescription(wxWindow& window, std::string_view description) {
  DescribeWidget(static_cast<GtkWidget*>(window.GetHandle()), std::string(description));
}

void SetAccessibleRole(wxWindow& window, AccessibleRole role) {
  AtkObject* const object = gtk_widget_get_accessible(static_cast<GtkWidget*>(window.GetHandle()));
  atk_object_set_role(object, role == AccessibleRole::Dialog      ? ATK_ROLE_DIALOG
                              : role == AccessibleRole::StatusBar ? ATK_ROLE_STATUSBAR
                                                                  : ATK_ROLE_NOTIFICATION);
}

// A notification that appears is read; one in a window that is still to be shown will appear with it.
void Announce(wxWindow& window) {
  SetAccessibleRole(window, AccessibleRole::Notification);
  if (!window.IsShownOnScreen()) return;
  AtkObject* const object = gtk_widget_get_accessible(static_cast<GtkWidget*>(window.GetHandle()));
  atk_object_notify_state_change(object, ATK_STATE_SHOWING, TRUE);
}

}  // namespace lorelin
