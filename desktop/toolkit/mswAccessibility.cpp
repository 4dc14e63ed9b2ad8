#include "desktop/toolkit/accessibility.h"

#include <wx/access.h>
#include <wx/msw/wrapwin.h>

#include <string>

#include "desktop/toolkit/text.h"

namespace lorelin {
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

}  // namespace lorelin
