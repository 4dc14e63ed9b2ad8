#include "desktop/toolkit/pageTabs.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#elif defined(__WXMSW__)
#include <wx/access.h>
#endif

namespace lorelin {

#ifdef __WXGTK__

namespace {

constexpr const char* kSelected = "lorelin-selected";

using StatesOf = AtkStateSet* (*)(AtkObject*);

StatesOf& StatesOfButtons() {
  static StatesOf original = nullptr;
  return original;
}

AtkStateSet* StatesWithSelection(AtkObject* object) {
  AtkStateSet* const states = StatesOfButtons()(object);
  if (g_object_get_data(G_OBJECT(object), kSelected) != nullptr)
    atk_state_set_add_state(states, ATK_STATE_SELECTED);
  return states;
}

// GTK asks the class of a button for its states, and no button knows this one.
void TeachSelection(AtkObject* object) {
  if (StatesOfButtons() != nullptr) return;
  AtkObjectClass* const kind = ATK_OBJECT_GET_CLASS(object);
  StatesOfButtons() = kind->ref_state_set;
  kind->ref_state_set = &StatesWithSelection;
}

}  // namespace

void SetPageTab(wxWindow& button, bool selected) {
  AtkObject* const object = gtk_widget_get_accessible(static_cast<GtkWidget*>(button.GetHandle()));
  TeachSelection(object);
  atk_object_set_role(object, ATK_ROLE_PAGE_TAB);
  g_object_set_data(G_OBJECT(object), kSelected, selected ? object : nullptr);
  atk_object_notify_state_change(object, ATK_STATE_SELECTED, selected ? TRUE : FALSE);
}

#elif defined(__WXMSW__)

namespace {

class PageTab final : public wxAccessible {
 public:
  explicit PageTab(wxWindow& button) : wxAccessible(&button) {}
  void Select(bool selected) { selected_ = selected; }
  wxAccStatus GetRole(int child, wxAccRole* role) override {
    if (child != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *role = wxROLE_SYSTEM_PAGETAB;
    return wxACC_OK;
  }
  wxAccStatus GetState(int child, long* state) override {
    if (child != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *state = wxACC_STATE_SYSTEM_FOCUSABLE | wxACC_STATE_SYSTEM_SELECTABLE;
    if (GetWindow()->HasFocus()) *state |= wxACC_STATE_SYSTEM_FOCUSED;
    if (selected_) *state |= wxACC_STATE_SYSTEM_SELECTED;
    return wxACC_OK;
  }

 private:
  bool selected_ = false;
};

}  // namespace

void SetPageTab(wxWindow& button, bool selected) {
  auto* tab = dynamic_cast<PageTab*>(button.GetAccessible());
  if (tab == nullptr) button.SetAccessible(tab = new PageTab(button));
  tab->Select(selected);
  wxAccessible::NotifyEvent(wxACC_EVENT_OBJECT_STATECHANGE, &button, wxOBJID_CLIENT, wxACC_SELF);
}

#endif

}  // namespace lorelin
