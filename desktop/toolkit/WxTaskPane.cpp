#include "desktop/toolkit/WxTaskPane.h"

#include <wx/statline.h>

#include <algorithm>
#include <utility>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/flatButton.h"
#include "desktop/toolkit/plainText.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

constexpr int kMargin = 8;

bool IsSeparator(std::string_view caption) {
  return !caption.empty() && caption.find_first_not_of('-') == std::string_view::npos;
}

}  // namespace

WxTaskPane::WxTaskPane(wxWindow* parent)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxTAB_TRAVERSAL,
                       "ctlTask") {
  SetScrollRate(0, FromDIP(12));
  SetSizer(new wxBoxSizer(wxVERTICAL));
  SetAccessibleName(*this, "Aufgaben");
}

void WxTaskPane::AddGroup(std::string_view group) {
  if (const auto found = groups_.find(group); found != groups_.end()) {
    found->second.heading->Hide();
    EmptyGroup(*found->second.items);
    return;
  }
  auto* const heading = NewPlainText(this, ToWx(group));
  heading->SetFont(heading->GetFont().Bold());
  const int margin = FromDIP(kMargin) + FlatButtonMargin(*this);  // in line with the items' texts
  GetSizer()->Add(heading, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, margin));
  auto* const items = new wxBoxSizer(wxVERTICAL);
  GetSizer()->Add(items, wxSizerFlags().Expand().Border(wxALL, FromDIP(kMargin)));
  heading->Hide();
  groups_.emplace(group, Group{heading, items});
  ArrangeSoon();
}

// Whoever builds the group anew may have been called from one of its items by way of the keyboard: the focus
// stays in the pane.
void WxTaskPane::EmptyGroup(wxSizer& items) {
  const wxWindow* const focus = FindFocus();
  const bool focused = focus != nullptr && items.GetItem(const_cast<wxWindow*>(focus)) != nullptr;
  items.Clear(true);
  if (focused) CallAfter([this] { NavigateIn(wxNavigationKeyEvent::IsForward); });
  ArrangeSoon();
}

void WxTaskPane::AddSeparator(wxSizer& items) {
  items.Add(new wxStaticLine(this), wxSizerFlags().Expand().Border(wxALL, FromDIP(6)));
  ArrangeSoon();
}

void WxTaskPane::AddItem(std::string_view group, std::int32_t number, std::string_view caption,
                         TaskPaneRequest request) {
  const auto found = groups_.find(group);
  if (found == groups_.end()) return;
  found->second.heading->Show();
  if (IsSeparator(caption)) return AddSeparator(*found->second.items);
  auto* const item = NewFlatButton(this, ToWx(caption));
  // The handler may run for hours and build the group anew: it is not called from inside the item.
  item->Bind(wxEVT_BUTTON, [this, number, request](wxCommandEvent&) {
    CallAfter([this, number, request] {
      if (handler_) handler_(number, request);
    });
  });
  // A long name is cut, not the pane's width grown.
  item->SetMinSize(wxSize(0, std::max(item->GetBestSize().y, GetCharHeight() * 3 / 2)));
  item->SetToolTip(ToWx(caption));
  found->second.items->Add(item, wxSizerFlags().Expand());
  ArrangeSoon();
}

// Once for all that is added in one go.
void WxTaskPane::ArrangeSoon() {
  if (std::exchange(arranging_, true)) return;
  CallAfter([this] {
    arranging_ = false;
    Arrange();
  });
}

void WxTaskPane::Arrange() {
  FitInside();
  Layout();
}

}  // namespace lorelin
