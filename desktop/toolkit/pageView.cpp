#include "desktop/toolkit/browserEngine.h"

namespace lorelin {

wxWebView* NewPageView(wxWindow* parent, const PageEvents& events) {
  wxWebView* const view = wxWebView::New(parent, wxID_ANY, "about:blank");
  view->Bind(wxEVT_WEBVIEW_SCRIPT_MESSAGE_RECEIVED, events.message);
  view->Bind(wxEVT_WEBVIEW_LOADED, events.loaded);
  view->Bind(wxEVT_WEBVIEW_NAVIGATING, events.navigating);
  view->Bind(wxEVT_WEBVIEW_NEWWINDOW, events.newWindow);
  view->Bind(wxEVT_WEBVIEW_ERROR, events.error);
  return view;
}

}  // namespace lorelin
