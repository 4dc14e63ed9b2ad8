#include "platform/wx/WxTaskPane.h"

#include <wx/button.h>
#include <wx/stattext.h>

#include "platform/wx/accessibility.h"
#include "platform/wx/text.h"

namespace lorelin {

WxTaskPane::WxTaskPane(wxWindow* parent)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxTAB_TRAVERSAL,
                       "ctlTask") {
  SetScrollRate(0, FromDIP(12));
  SetSizer(new wxBoxSizer(wxVERTICAL));
  SetAccessibleName(*this, "Aufgaben");
}

void WxTaskPane::AddGroup(std::string_view group) {
  if (const auto found = groups_.find(group); found != groups_.end()) {
    found->second->Clear(true);
    Arrange();
    return;
  }
  auto* const heading = new wxStaticText(this, wxID_ANY, ToWx(group));
  heading->SetFont(heading->GetFont().Bold());
  GetSizer()->Add(heading, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(12)));
  auto* const items = new wxBoxSizer(wxVERTICAL);
  GetSizer()->Add(items, wxSizerFlags().Expand().Border(wxALL, FromDIP(8)));
  groups_.emplace(group, items);
  Arrange();
}

void WxTaskPane::AddItem(std::string_view group, std::int32_t number, std::string_view caption) {
  const auto found = groups_.find(group);
  if (found == groups_.end()) return;
  auto* const item = new wxButton(this, wxID_ANY, wxControl::EscapeMnemonics(ToWx(caption)),
                                  wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxBU_LEFT);
  item->Bind(wxEVT_BUTTON, [this, number](wxCommandEvent&) {
    if (handler_) handler_(number);
  });
  found->second->Add(item, wxSizerFlags().Expand());
  Arrange();
}

void WxTaskPane::Arrange() {
  FitInside();
  Layout();
}

}  // namespace lorelin
