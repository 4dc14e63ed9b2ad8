#include "desktop/toolkit/WxChapterPane.h"

#include <wx/sizer.h>

#include <algorithm>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/flatButton.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

constexpr int kMargin = 8;
constexpr int kDeepest = 6;  // levels that are indented further

// Deeper chapters stand further to the right.
wxString Caption(const Chapter& chapter) {
  const int depth = std::clamp(chapter.level - 1, 0, kDeepest);
  return wxString(static_cast<std::size_t>(depth) * 3, ' ') + ToWx(chapter.title);
}

}  // namespace

WxChapterPane::WxChapterPane(wxWindow* parent)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "chapters") {
  heading_ = NewFlatButton(this, wxEmptyString);
  heading_->SetFont(heading_->GetFont().Bold());
  heading_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Fold(list_->IsShown()); });
  list_ = new wxListBox(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                        wxLB_SINGLE | wxLB_HSCROLL, wxDefaultValidator, "lstChapters");
  SetAccessibleName(*list_, "Kapitel");
  list_->Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
    event.Skip();
    CallAfter([this] { Choose(); });
  });
  list_->Bind(wxEVT_KEY_DOWN, &WxChapterPane::OnKey, this);
  SetSizer(new wxBoxSizer(wxVERTICAL));
  const wxSizerFlags placed = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(kMargin));
  GetSizer()->Add(heading_, placed);
  GetSizer()->Add(list_,
                  wxSizerFlags(placed).Proportion(1).Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(kMargin)));
  list_->SetMinSize(wxSize(0, list_->GetCharHeight() * 6));
  Fold(false);
  Hide();
}

void WxChapterPane::OnKey(wxKeyEvent& event) {
  if (event.GetKeyCode() != WXK_RETURN && event.GetKeyCode() != WXK_NUMPAD_ENTER) return event.Skip();
  Choose();
}

// Behind the event: the handler may take its time.
void WxChapterPane::Choose() {
  const int index = list_->GetSelection();
  if (index == wxNOT_FOUND) return;
  CallAfter([this, index] {
    if (handler_) handler_(static_cast<std::size_t>(index));
  });
}

void WxChapterPane::Fold(bool folded) {
  list_->Show(!folded);
  heading_->SetLabel(ToWx(folded ? "▸ Inhalt" : "▾ Inhalt"));
  SetAccessibleName(*heading_, folded ? "Inhalt ausklappen" : "Inhalt einklappen");
  if (auto* const item = GetContainingSizer() == nullptr ? nullptr : GetContainingSizer()->GetItem(this))
    item->SetProportion(folded ? 0 : 1);
  GetParent()->Layout();
}

void WxChapterPane::ShowChapters(std::span<const Chapter> chapters) {
  wxArrayString captions;
  captions.reserve(chapters.size());
  std::ranges::for_each(chapters, [&](const Chapter& chapter) { captions.push_back(Caption(chapter)); });
  list_->Set(captions);
  if (IsShown() == !chapters.empty()) return;
  Show(!chapters.empty());
  Fold(!list_->IsShown());
}

void WxChapterPane::MarkChapter(std::optional<std::size_t> index) {
  if (!index) return list_->SetSelection(wxNOT_FOUND);
  const auto row = static_cast<int>(*index);
  if (row >= static_cast<int>(list_->GetCount())) return;
  list_->SetSelection(row);
  list_->EnsureVisible(row);
}

}  // namespace lorelin
