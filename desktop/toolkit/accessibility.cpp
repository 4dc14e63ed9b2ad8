#include "desktop/toolkit/accessibility.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#elif defined(__WXMSW__)
#include <wx/access.h>

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

}  // namespace

void SetAccessibleName(wxWindow& window, std::string_view name) {
  std::string text(name);
  NameWidget(static_cast<GtkWidget*>(window.GetHandle()), &text);
}

#elif defined(__WXMSW__)

namespace {

// Gives a control a name; the rest is told by Windows itself.
class NamedAccessible final : public wxAccessible {
 public:
  NamedAccessible(wxWindow& window, std::string_view name) : wxAccessible(&window), name_(ToWx(name)) {}
  wxAccStatus GetName(int child, wxString* name) override {
    if (child != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *name = name_;
    return wxACC_OK;
  }

 private:
  wxString name_;
};

}  // namespace

// The window owns what it is given.
void SetAccessibleName(wxWindow& window, std::string_view name) {
  window.SetAccessible(new NamedAccessible(window, name));
}

#endif

}  // namespace lorelin
