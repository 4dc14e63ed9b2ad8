#include "desktop/toolkit/statusBar.h"

#include <algorithm>
#include <array>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/statusBarFields.h"

namespace lorelin {
namespace {

constexpr std::size_t kShortestAnnounced = 3;  // the sign of the title reader says nothing to an ear

void ShowIn(wxStatusBar& bar, StatusField field, const wxString& text) {
  const int number = static_cast<int>(field);
  if (bar.GetStatusText(number) == text) return;
  bar.SetStatusText(text, number);
  if (text.length() >= kShortestAnnounced) Announce(AnnouncedPart(bar, field));
}

}  // namespace

wxStatusBar* MakeStatusBar(wxFrame& frame, const wxString& sample) {
  wxStatusBar* const bar = MakeStatusFields(frame);
  const std::array widths{bar->GetTextExtent(sample).x + frame.FromDIP(24), -1, 0};
  bar->SetStatusWidths(kStatusFields, widths.data());
  frame.SetStatusBar(bar);
  return bar;
}

void ShowStatus(wxStatusBar& bar, const wxString& text) {
  ShowIn(bar, StatusField::Message, text);
}

void ShowNotice(wxStatusBar& bar, const wxString& text) {
  if (bar.GetStatusText(static_cast<int>(StatusField::Notice)) == text) return;
  const int half = bar.GetClientSize().x / 2;
  const int wanted = text.empty() ? 0 : std::min(bar.GetTextExtent(text).x + bar.FromDIP(24), half);
  const std::array widths{bar.GetStatusWidth(0), -1, wanted};
  bar.SetStatusWidths(kStatusFields, widths.data());
  ShowIn(bar, StatusField::Notice, text);
}

}  // namespace lorelin
