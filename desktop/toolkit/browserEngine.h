#pragma once

#include <wx/webview.h>

#include <functional>

namespace lorelin {

// What a view tells of its page.
struct PageEvents {
  using Handler = std::function<void(wxWebViewEvent&)>;
  Handler message;
  Handler loaded;
  Handler navigating;
  Handler newWindow;
  Handler error;
};

// Whether a web view can show pages on this system. Prepares the engine when there is one; to be asked before
// the first view is made.
[[nodiscard]] bool HasBrowserEngine();

// An empty view, owned by its parent, which tells of its pages from the first on.
[[nodiscard]] wxWebView* NewPageView(wxWindow* parent, const PageEvents& events);

// Lets the page itself, not what it lies in, take the focus; once for each view.
void LetPageTakeFocus(wxWebView& view);
// Tells screen readers so; again for each page, which may come from a new process.
void TellThatPageIsUsable(wxWebView& view);
void FocusPage(wxWebView& view);

// Lets pages send texts to this name, each of which becomes a wxEVT_WEBVIEW_SCRIPT_MESSAGE_RECEIVED; once for
// each view, before it shows a page.
void LetPageSend(wxWebView& view, const char* name);

}  // namespace lorelin
