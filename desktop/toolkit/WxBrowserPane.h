#pragma once

#include <wx/panel.h>

#include <string>

#include "desktop/toolkit/browserEngine.h"
#include "ports/BrowserPane.h"
#include "ports/Log.h"

namespace lorelin {

// The web view with the program's pages. The view itself is made when it is first needed: starting in text
// mode does without it.
class WxBrowserPane final : public wxPanel, public BrowserPane {
 public:
  // `filterFolder` keeps the compiled rule that holds the view offline.
  WxBrowserPane(wxWindow* parent, std::string filterFolder, Log& log);

  void SetOffline() override { offline_ = true; }
  void Navigate(const std::string& path) override;
  void OnNavigate(std::function<bool(std::string& address)> handler) override {
    handler_ = std::move(handler);
  }
  void Focus() override { SetFocus(); }
  // A page that was asked for before is loaded now.
  bool Show(bool show = true) override;
  void SetFocus() override;
  void SelectAll();
  void Copy();
  // Shows the next place of the text, or the one before it, and round the ends; false when there is none.
  bool Find(const std::string& text, bool matchCase, bool backwards);
  // Called with the control that shows the pages as soon as there is one.
  void OnViewMade(std::function<void(wxWindow&)> handler) { viewMade_ = std::move(handler); }
  // So many steps larger than usual.
  void SetZoom(int steps);

 private:
  void ShowPage();
  void CreateView();
  void CreateSubstitute();
  PageEvents Events();
  void OnNavigating(wxWebViewEvent& event);
  void OnNewWindow(wxWebViewEvent& event);
  void OnError(wxWebViewEvent& event);

  std::string filterFolder_;
  Log& log_;
  wxWebView* view_ = nullptr;       // owned by the window tree
  wxWindow* substitute_ = nullptr;  // in the place of a view, where there can be none
  wxString page_;
  bool waiting_ = false;  // the page is loaded when the pane is shown
  std::function<bool(std::string& address)> handler_;
  std::function<void(wxWindow&)> viewMade_;
  std::string clicked_;  // the link as it stands in the page, until the navigation to it
  bool offline_ = false;
  int zoomSteps_ = 0;
};

}  // namespace lorelin
