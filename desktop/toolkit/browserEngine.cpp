#include "desktop/toolkit/browserEngine.h"

#ifdef __WXMSW__
#include <wx/msw/webview_ie.h>

#include <exdisp.h>
#include <wrl/client.h>
#elif defined(__WXGTK__)
#include <gtk/gtk.h>

#include <array>
#include <utility>
#endif

namespace lorelin {

#ifdef __WXMSW__

namespace {

constexpr CLSID kDocument = {0x25336920, 0x03F9, 0x11CF, {0x8F, 0xD0, 0x00, 0xAA, 0x00, 0x68, 0x6F, 0x13}};
constexpr CLSID kBrowser = {0x8856F961, 0x340A, 0x11D0, {0xA9, 0x6B, 0x00, 0xC0, 0x4F, 0xD7, 0x05, 0xA2}};

bool CanBeCreated(const CLSID& id) {
  Microsoft::WRL::ComPtr<IUnknown> object;
  return SUCCEEDED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                    reinterpret_cast<void**>(object.GetAddressOf())));
}

}  // namespace

// The browser control without the engine that draws pages is there in some installations.
bool HasBrowserEngine() {
  static const bool has = CanBeCreated(kBrowser) && CanBeCreated(kDocument);
  if (has) wxWebViewIE::MSWSetEmulationLevel(wxWEBVIEWIE_EMU_IE11);
  return has;
}

void LetPageTakeFocus(wxWebView&) {}
void TellThatPageIsUsable(wxWebView&) {}

void FocusPage(wxWebView& view) {
  view.SetFocus();
}

#else

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

#endif

}  // namespace lorelin
