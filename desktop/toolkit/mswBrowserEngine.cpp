#include "desktop/toolkit/browserEngine.h"

#include <wx/msw/webview_ie.h>

#include <exdisp.h>
#include <wrl/client.h>

namespace lorelin {
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

void LetPageSend(wxWebView& view, const char* name) {
  view.AddScriptMessageHandler(name);
}

}  // namespace lorelin
