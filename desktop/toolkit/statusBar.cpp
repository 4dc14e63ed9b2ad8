#include "desktop/toolkit/statusBar.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/statusBarFields.h"

namespace lorelin {
namespace {

constexpr std::size_t kShortestAnnounced = 3;  // the sign of the title reader says nothing to an ear

// The message has what the others leave.
void SetWidths(wxStatusBar& bar, std::initializer_list<std::pair<StatusField, int>> changes) {
  std::array<int, kStatusFields> widths{};
  for (std::size_t i = 0; i < widths.size(); ++i)
    widths[i] = std::max(0, bar.GetStatusWidth(static_cast<int>(i)));
  widths[static_cast<std::size_t>(StatusField::Message)] = -1;
  for (const auto& [field, width] : changes) widths[static_cast<std::size_t>(field)] = width;
  bar.SetStatusWidths(kStatusFields, widths.data());
}

void ShowIn(wxStatusBar& bar, StatusField field, const wxString& text) {
  const int number = static_cast<int>(field);
  if (bar.GetStatusText(number) == text) return;
  bar.SetStatusText(text, number);
  if (text.length() >= kShortestAnnounced) Announce(AnnouncedPart(bar, field));
}

}  // namespace

wxStatusBar* MakeStatusBar(wxFrame& frame, const wxString& sample) {
  wxStatusBar* const bar = MakeStatusFields(frame);
  SetWidths(*bar, {{StatusField::First, bar->GetTextExtent(sample).x + frame.FromDIP(24)}});
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
  SetWidths(bar, {{StatusField::Notice, wanted}});
  ShowIn(bar, StatusField::Notice, text);
}

void SetPlaceWidths(wxStatusBar& bar, int text, int line) {
  const int most = bar.GetClientSize().x * 2 / 5;
  SetWidths(bar, {{StatusField::Place, std::min(text, std::max(most - line, 0))}, {StatusField::Line, line}});
}

}  // namespace lorelin
