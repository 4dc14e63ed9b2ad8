#pragma once

#include <string>

#include "desktop/toolkit/browserEngine.h"

namespace lorelin {

// What shows pages is a library of its own, since the engine behind it is larger than all the rest: binding
// it would take half of the time in which a text is opened. It is loaded for the first page and never
// unloaded.
struct PageLibrary {
  wxWebView* (*newPageView)(wxWindow* parent, const PageEvents& events);
  void (*letPageTakeFocus)(wxWebView& view);
  void (*tellThatPageIsUsable)(wxWebView& view);
  void (*focusPage)(wxWebView& view);
  void (*letPageSend)(wxWebView& view, const char* name);
  void (*blockNetwork)(wxWebView& view, const std::string& folder);
  bool (*findInPage)(wxWebView& view, const wxString& text, bool matchCase, bool backwards);
};

// What the library gives under this name.
using GivePageLibrary = const PageLibrary* (*)();
inline constexpr const char* kGivePageLibrary = "LorelinPageLibrary";

}  // namespace lorelin
