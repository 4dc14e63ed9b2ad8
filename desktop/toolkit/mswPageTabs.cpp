#include "desktop/toolkit/pageTabs.h"

#include <wx/access.h>

namespace lorelin {
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

}  // namespace lorelin
