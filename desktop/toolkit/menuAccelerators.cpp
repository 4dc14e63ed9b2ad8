#include "desktop/toolkit/menuAccelerators.h"

#include <wx/accel.h>
#include <wx/menu.h>

#include <memory>

namespace lorelin {
namespace {

bool HasKey(const wxMenuItem& item, const wxKeyEvent& event) {
  if (item.IsSeparator() || item.IsSubMenu()) return false;
  const std::unique_ptr<wxAcceleratorEntry> key(item.GetAccel());
  return key != nullptr && key->GetKeyCode() == event.GetKeyCode() && key->GetFlags() == event.GetModifiers();
}

wxMenuItem* EntryWithKey(const wxMenuBar& bar, const wxKeyEvent& event) {
  for (std::size_t i = 0; i < bar.GetMenuCount(); ++i) {
    for (wxMenuItem* const item : bar.GetMenu(i)->GetMenuItems()) {
      if (HasKey(*item, event)) return item;
    }
  }
  return nullptr;
}

}  // namespace

bool RunMenuKey(wxFrame& frame, const wxKeyEvent& event) {
  wxMenuItem* const item = EntryWithKey(*frame.GetMenuBar(), event);
  if (item == nullptr) return false;
  item->GetMenu()->UpdateUI(&frame);
  if (!item->IsEnabled()) return false;
  wxCommandEvent chosen(wxEVT_MENU, item->GetId());
  chosen.SetEventObject(&frame);
  return frame.ProcessWindowEvent(chosen);
}

}  // namespace lorelin
