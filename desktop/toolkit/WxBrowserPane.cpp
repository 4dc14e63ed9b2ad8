#include "desktop/toolkit/WxBrowserPane.h"

#include <wx/button.h>
#include <wx/filesys.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/utils.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/paths.h"
#include "base/text.h"
#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/browserEngine.h"
#include "desktop/toolkit/fontScale.h"
#include "desktop/toolkit/offlineFilter.h"
#include "desktop/toolkit/pageSearch.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

constexpr double kZoomStep = 1.15;

constexpr const char* kMessageHandler = "lorelin";

// The engine hands over links with a small scheme and escaped umlauts.
constexpr const char* kReportClicks = R"(
document.addEventListener('click', function (event) {
  var link = event.target.closest ? event.target.closest('a[href]') : null;
  if (link) window.webkit.messageHandlers.lorelin.postMessage(link.getAttribute('href'));
}, true);
)";

// Where reading begins when the page gets the keyboard: at its contents, which are called as their heading is
// because a screen reader passes over a heading that gets the focus, or where the link led to.
constexpr const char* kBeginAtContents = R"(
(function () {
  var heading = document.querySelector('h1');
  var contents = document.querySelector('main');
  if (heading && contents) contents.setAttribute('aria-label', heading.textContent);
  var begin = location.hash ? document.getElementById(location.hash.slice(1)) : contents || heading;
  if (!begin) return;
  begin.tabIndex = -1;
  begin.style.outline = 'none';
  function focus() { begin.focus({ preventScroll: true }); }
  if (document.hasFocus()) focus(); else window.addEventListener('focus', focus, { once: true });
})();
)";

bool IsLocal(const std::string& address) {
  return address.starts_with("file:") || address.starts_with("about:");
}

// The address as the page has it, when it was a click on it that led there.
std::string AsWritten(const std::string& address, const std::string& clicked) {
  const auto scheme = clicked.find(':');
  if (scheme == std::string::npos) return address;
  const bool same = LowerAscii(address.substr(0, scheme + 1)) == LowerAscii(clicked.substr(0, scheme + 1));
  return same && !IsLocal(address) ? clicked : address;
}

}  // namespace

WxBrowserPane::WxBrowserPane(wxWindow* parent, std::string filterFolder, Log& log)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "wbBrowser"),
      filterFolder_(std::move(filterFolder)),
      log_(log) {
  SetSizer(new wxBoxSizer(wxVERTICAL));
}

void WxBrowserPane::CreateView() {
  if (view_ != nullptr || substitute_ != nullptr) return;
  if (!HasBrowserEngine()) {
    CreateSubstitute();
    return;
  }
  view_ = NewPageView(this, Events());
  view_->EnableContextMenu(false);
  SetAccessibleName(*view_, "Seite");
  LetPageTakeFocus(*view_);
  GetSizer()->Add(view_, wxSizerFlags(1).Expand());
  Layout();
  SetZoom(zoomSteps_);
  if (offline_) BlockNetwork(*view_, filterFolder_);
  LetPageSend(*view_, kMessageHandler);
  view_->AddUserScript(kReportClicks);
  view_->AddUserScript(kBeginAtContents, wxWEBVIEW_INJECT_AT_DOCUMENT_END);
  if (viewMade_) viewMade_(*view_);
}

PageEvents WxBrowserPane::Events() {
  return {.message = [this](wxWebViewEvent& event) { clicked_ = FromWx(event.GetString()); },
          .loaded = [this](wxWebViewEvent&) { TellThatPageIsUsable(*view_); },
          .navigating = [this](wxWebViewEvent& event) { OnNavigating(event); },
          .newWindow = [this](wxWebViewEvent& event) { OnNewWindow(event); },
          .error = [this](wxWebViewEvent& event) { OnError(event); }};
}

// Everything else goes on without pages.
void WxBrowserPane::CreateSubstitute() {
  log_.Write("Dieses System kann keine Seiten zeigen.");
  auto* const reason = new wxStaticText(
      this, wxID_ANY,
      ToWx("Hier stünde eine Seite, aber auf diesem Computer fehlt, womit Seiten gezeigt werden.\n\n"
           "Texte schreiben, öffnen und vorlesen geht trotzdem: im Menü „Ansicht“ mit „Textmodus“."));
  substitute_ = new wxButton(this, wxID_ANY, ToWx("&Seite im Webbrowser öffnen"));
  substitute_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
    if (!wxLaunchDefaultBrowser(page_)) log_.Write("Kein Webbrowser für " + FromWx(page_));
  });
  const int margin = FromDIP(24);
  GetSizer()->Add(reason, wxSizerFlags().Border(wxALL, margin));
  GetSizer()->Add(substitute_, wxSizerFlags().Border(wxLEFT | wxRIGHT, margin));
  Bind(wxEVT_SIZE, [this, reason, margin](wxSizeEvent& event) {
    const wxString text = reason->GetLabel();
    reason->SetLabel(text);
    reason->Wrap(std::max(GetClientSize().x - 2 * margin, FromDIP(100)));
    event.Skip();
  });
  Layout();
}

void WxBrowserPane::Navigate(const std::string& path) {
  page_ = wxFileSystem::FileNameToURL(wxFileName(ToWx(PathText(NativePath(path)))));
  waiting_ = true;
  if (IsShown()) ShowPage();
}

bool WxBrowserPane::Show(bool show) {
  if (show && waiting_) ShowPage();
  return wxPanel::Show(show);
}

void WxBrowserPane::ShowPage() {
  waiting_ = false;
  CreateView();
  if (view_ != nullptr) view_->LoadURL(page_);
}

void WxBrowserPane::SetFocus() {
  if (view_ != nullptr) FocusPage(*view_);
  if (substitute_ != nullptr) substitute_->SetFocus();
}

void WxBrowserPane::SelectAll() {
  if (view_ != nullptr) view_->SelectAll();
}

void WxBrowserPane::Copy() {
  if (view_ != nullptr) view_->Copy();
}

bool WxBrowserPane::Find(const std::string& text, bool matchCase, bool backwards) {
  return view_ != nullptr && !text.empty() && FindInPage(*view_, ToWx(text), matchCase, backwards);
}

void WxBrowserPane::SetZoom(int steps) {
  zoomSteps_ = steps;
  if (view_ != nullptr)
    view_->SetZoomFactor(static_cast<float>(FontScale(*this) * std::pow(kZoomStep, zoomSteps_)));
}

// What a link does may take as long as a speech, and the view is in the middle of its event here.
void WxBrowserPane::OnNavigating(wxWebViewEvent& event) {
  std::string address = AsWritten(FromWx(event.GetURL()), std::exchange(clicked_, {}));
  if (IsLocal(address)) return;
  event.Veto();
  CallAfter([this, address]() mutable {
    if (!handler_ || !handler_(address)) log_.Write("Nicht geladen: " + address);
  });
}

// A link that wants a window of its own is followed in this one.
void WxBrowserPane::OnNewWindow(wxWebViewEvent& event) {
  view_->LoadURL(event.GetURL());
}

void WxBrowserPane::OnError(wxWebViewEvent& event) {
  log_.Write("Seite " + FromWx(event.GetURL()) + ": " + FromWx(event.GetString()));
}

}  // namespace lorelin
