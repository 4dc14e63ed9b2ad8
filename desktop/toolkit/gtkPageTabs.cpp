#include "desktop/toolkit/pageTabs.h"

#include <gtk/gtk.h>

namespace lorelin {
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

}  // namespace lorelin
