#include "platform/wx/WxBrowserPane.h"

#include <wx/filesys.h>
#include <wx/sizer.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "app/paths.h"
#include "platform/wx/accessibility.h"
#include "platform/wx/offlineFilter.h"
#include "platform/wx/text.h"

namespace lorelin {
namespace {

constexpr double kZoomStep = 1.15;
constexpr int kMostZoomSteps = 12;

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

void WxBrowserPane::SelectAll() {
  if (view_ != nullptr) view_->SelectAll();
}

void WxBrowserPane::Zoom(int steps) {
  zoomSteps_ = steps == 0 ? 0 : std::clamp(zoomSteps_ + steps, -kMostZoomSteps, kMostZoomSteps);
  if (view_ != nullptr) view_->SetZoomFactor(static_cast<float>(std::pow(kZoomStep, zoomSteps_)));
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
