#include "desktop/toolkit/browserEngine.h"

#include <gtk/gtk.h>

#include <array>
#include <utility>

namespace lorelin {

bool HasBrowserEngine() {
  return true;
}

namespace {

constexpr std::array kStates{ATK_STATE_ENABLED, ATK_STATE_SENSITIVE, ATK_STATE_VISIBLE, ATK_STATE_SHOWING};

AtkStateSet* (*statesOfSocket)(AtkObject*) = nullptr;

// What joins the page to the window tells nothing but that it has the focus, which a screen reader takes for
// a control that is greyed. The bridge to the page's process puts its own answer there when that process
// comes.
AtkStateSet* StatesOfPage(AtkObject* object) {
  AtkStateSet* const states = statesOfSocket(object);
  for (const AtkStateType state : kStates) atk_state_set_add_state(states, state);
  return states;
}

}  // namespace

void TellThatPageIsUsable(wxWebView& view) {
  AtkObject* const page = gtk_widget_get_accessible(static_cast<GtkWidget*>(view.GetNativeBackend()));
  AtkObjectClass* const type = ATK_OBJECT_GET_CLASS(page);
  if (type->ref_state_set != StatesOfPage) statesOfSocket = std::exchange(type->ref_state_set, StatesOfPage);
  for (const AtkStateType state : kStates) atk_object_notify_state_change(page, state, TRUE);
}

// The toolkit gives the focus to the scrolled window around the page, where no key has an effect.
void LetPageTakeFocus(wxWebView& view) {
  gtk_widget_set_can_focus(static_cast<GtkWidget*>(view.GetHandle()), FALSE);
}

void FocusPage(wxWebView& view) {
  TellThatPageIsUsable(view);
  gtk_widget_grab_focus(static_cast<GtkWidget*>(view.GetNativeBackend()));
}

}  // namespace lorelin
