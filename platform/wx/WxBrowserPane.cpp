#include "platform/wx/WxBrowserPane.h"

#include <wx/filesys.h>
#include <wx/sizer.h>

#include <utility>

#include "app/paths.h"
#include "platform/wx/accessibility.h"
#include "platform/wx/offlineFilter.h"
#include "platform/wx/text.h"

namespace lorelin {
namespace {

bool IsLocal(const std::string& address) {
  return address.starts_with("file:") || address.starts_with("about:");
}

}  // namespace

WxBrowserPane::WxBrowserPane(wxWindow* parent, std::string filterFolder, Log& log)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "wbBrowser"),
      filterFolder_(std::move(filterFolder)),
      log_(log) {
  SetSizer(new wxBoxSizer(wxVERTICAL));
}

void WxBrowserPane::CreateView() {
  if (view_ != nullptr) return;
  view_ = wxWebView::New(this, wxID_ANY, "about:blank");
  view_->EnableContextMenu(false);
  SetAccessibleName(*view_, "Seite");
  GetSizer()->Add(view_, wxSizerFlags(1).Expand());
  Layout();
  if (offline_) BlockNetwork(*view_, filterFolder_);
  view_->Bind(wxEVT_WEBVIEW_NAVIGATING, &WxBrowserPane::OnNavigating, this);
  view_->Bind(wxEVT_WEBVIEW_ERROR, &WxBrowserPane::OnError, this);
}

void WxBrowserPane::Navigate(const std::string& path) {
  CreateView();
  view_->LoadURL(wxFileSystem::FileNameToURL(wxFileName(ToWx(PathText(NativePath(path))))));
}

void WxBrowserPane::SetFocus() {
  if (view_ != nullptr) view_->SetFocus();
}

void WxBrowserPane::OnNavigating(wxWebViewEvent& event) {
  const std::string address = FromWx(event.GetURL());
  if (!offline_ || IsLocal(address)) return;
  log_.Write("Nicht geladen: " + address);
  event.Veto();
}

void WxBrowserPane::OnError(wxWebViewEvent& event) {
  log_.Write("Seite " + FromWx(event.GetURL()) + ": " + FromWx(event.GetString()));
}

}  // namespace lorelin
