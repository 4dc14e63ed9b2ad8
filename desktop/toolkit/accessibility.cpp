#include "desktop/toolkit/accessibility.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#elif defined(__WXMSW__)
#include <wx/access.h>
#include <wx/msw/wrapwin.h>

#include "desktop/toolkit/text.h"
#endif

#include <string>

namespace lorelin {

#ifdef __WXGTK__

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

#elif defined(__WXMSW__)

namespace {

// Gives a control a name and what else is to be said of it; the rest is told by Windows itself.
class NamedAccessible final : public wxAccessible {
 public:
  explicit NamedAccessible(wxWindow& window) : wxAccessible(&window) {}
  void SetName(std::string_view name) { name_ = ToWx(name); }
  void SetDescription(std::string_view description) { description_ = ToWx(description); }
  wxAccStatus GetName(int child, wxString* name) override { return Tell(child, name_, name); }
  wxAccStatus GetDescription(int child, wxString* description) override {
    return Tell(child, description_, description);
  }

 private:
  static wxAccStatus Tell(int child, const wxString& text, wxString* told) {
    if (child != wxACC_SELF || text.empty()) return wxACC_NOT_IMPLEMENTED;
    *told = text;
    return wxACC_OK;
  }

  wxString name_;
  wxString description_;
};

// The window owns what it is given.
NamedAccessible& AccessibleOf(wxWindow& window) {
  if (auto* const present = dynamic_cast<NamedAccessible*>(window.GetAccessible())) return *present;
  auto* const made = new NamedAccessible(window);
  window.SetAccessible(made);
  return *made;
}

}  // namespace

void SetAccessibleName(wxWindow& window, std::string_view name) {
  AccessibleOf(window).SetName(name);
}

void SetAccessibleDescription(wxWindow& window, std::string_view description) {
  AccessibleOf(window).SetDescription(description);
}

// Dialogs and status bars are what they are by themselves.
void SetAccessibleRole(wxWindow&, AccessibleRole) {}

void Announce(wxWindow& window) {
  constexpr DWORD kLiveRegionChanged = 0x8019;  // EVENT_OBJECT_LIVEREGIONCHANGED, which older headers lack
  NotifyWinEvent(kLiveRegionChanged, static_cast<HWND>(window.GetHandle()), OBJID_CLIENT, CHILDID_SELF);
}

#endif

}  // namespace lorelin
