#include "desktop/toolkit/FocusKeeper.h"

#include <wx/app.h>
#include <wx/toplevel.h>
#include <wx/window.h>

#include <gtk/gtk.h>

#include "desktop/toolkit/activeWindow.h"

namespace lorelin {

// The toolkit knows the focus of the active window only, and while a dialog closes there is none.
struct FocusKeeper::Place {
  explicit Place(GtkWidget* focused) : widget(focused) {
    if (widget != nullptr) g_object_add_weak_pointer(G_OBJECT(widget), reinterpret_cast<gpointer*>(&widget));
  }
  ~Place() {
    if (widget != nullptr)
      g_object_remove_weak_pointer(G_OBJECT(widget), reinterpret_cast<gpointer*>(&widget));
  }
  Place(const Place&) = delete;
  Place& operator=(const Place&) = delete;

  GtkWidget* widget;
};

FocusKeeper::FocusKeeper() {
  const wxWindow* const window = OwnerOfDialog(wxTheApp->GetTopWindow());
  place_ = std::make_unique<Place>(window == nullptr ? nullptr
                                                     : gtk_window_get_focus(GTK_WINDOW(window->GetHandle())));
}

void FocusKeeper::GiveBack() {
  if (place_->widget != nullptr) gtk_widget_grab_focus(place_->widget);
}

FocusKeeper::~FocusKeeper() = default;

}  // namespace lorelin
