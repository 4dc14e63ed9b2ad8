#include "desktop/toolkit/PlaceLine.h"

#include <algorithm>
#include <utility>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/statusBar.h"
#include "desktop/toolkit/statusBarFields.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

constexpr int kLineWidth = 110;
constexpr std::size_t kSteps = 10;  // of the keys that go far

// As wide as with other digits: the line is not to dance.
wxString WidestText(const std::string& text) {
  std::string widest = text;
  for (char& c : widest) {
    if (c >= '0' && c <= '9') c = '0';
  }
  return ToWx(widest);
}

}  // namespace

PlaceLine::PlaceLine(wxStatusBar& bar)
    : bar_(bar),
      line_(new wxSlider(&bar, wxID_ANY, 1, 1, 2, wxDefaultPosition, wxDefaultSize, wxSL_HORIZONTAL,
                         wxDefaultValidator, "place")) {
  MakeThin(*line_);
  SetAccessibleName(*line_, "Satz, der vorgelesen wird");
  line_->Hide();
  bar_.Bind(wxEVT_SIZE, &PlaceLine::OnSize, this);
  line_->Bind(wxEVT_SCROLL_THUMBTRACK, [this](wxScrollEvent& event) {
    dragged_ = true;
    event.Skip();
  });
  line_->Bind(wxEVT_SCROLL_CHANGED, [this](wxScrollEvent& event) {
    dragged_ = false;
    event.Skip();
    if (chosen_) chosen_(static_cast<std::size_t>(line_->GetValue()));
  });
}

// A line that somebody drags stays in his hand.
void PlaceLine::Show(const ShownPlace& place) {
  const int wanted = bar_.GetTextExtent(WidestText(place.text)).x + bar_.FromDIP(24);
  if (!line_->IsShown()) textWidth_ = 0;
  if (wanted > textWidth_) {
    textWidth_ = wanted;
    SetPlaceWidths(bar_, textWidth_, bar_.FromDIP(kLineWidth));
  }
  bar_.SetStatusText(ToWx(place.text), static_cast<int>(StatusField::Place));
  if (sentences_ != place.sentences) {
    sentences_ = place.sentences;
    line_->SetRange(1, static_cast<int>(std::max<std::size_t>(sentences_, 2)));
    line_->SetPageSize(static_cast<int>(std::max<std::size_t>(sentences_ / kSteps, 1)));
    line_->Enable(sentences_ > 1);
  }
  if (!dragged_) line_->SetValue(static_cast<int>(place.sentence));
  if (line_->IsShown()) return;
  line_->Show();
  Arrange();
}

void PlaceLine::Hide() {
  dragged_ = false;
  if (line_->HasFocus()) line_->Navigate();
  line_->Hide();
  bar_.SetStatusText("", static_cast<int>(StatusField::Place));
  SetPlaceWidths(bar_, 0, 0);
}

void PlaceLine::Focus() {
  if (line_->IsShown()) line_->SetFocus();
}

void PlaceLine::OnSize(wxSizeEvent& event) {
  event.Skip();
  Arrange();
}

void PlaceLine::Arrange() {
  wxRect place;
  if (!line_->IsShown() || !bar_.GetFieldRect(static_cast<int>(StatusField::Line), place)) return;
  const int height = std::min(line_->GetBestSize().y, place.height);
  line_->SetSize(place.x, place.y + (place.height - height) / 2, place.width, height);
}

}  // namespace lorelin
