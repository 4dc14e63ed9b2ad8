#include "desktop/toolkit/statusBar.h"

#include <wx/stattext.h>

#include <algorithm>
#include <array>

#include "desktop/toolkit/accessibility.h"

namespace lorelin {
namespace {

constexpr int kFields = 3;
constexpr int kMessageField = 1;
constexpr int kNoticeField = 2;
constexpr std::size_t kShortestAnnounced = 3;  // the sign of the title reader says nothing to an ear

#ifdef __WXGTK__

// The toolkit only draws the texts; here they are labels, which can be read and tell that they change.
class LabelledStatusBar final : public wxStatusBar {
 public:
  explicit LabelledStatusBar(wxFrame& frame)
      : wxStatusBar(&frame, wxID_ANY, wxSTB_DEFAULT_STYLE, "StatusBar1") {
    for (wxStaticText*& label : labels_) {
      label = new wxStaticText(this, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                               wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    }
    SetFieldsCount(kFields);  // arranges them
    labels_[kMessageField]->SetName("message");
    labels_[kNoticeField]->SetName("notice");
    SetMinHeight(labels_[0]->GetBestSize().y);
    SetAccessibleName(*this, "Statusleiste");
    SetAccessibleRole(*this, AccessibleRole::StatusBar);
    SetAccessibleRole(*labels_[kMessageField], AccessibleRole::Notification);
    SetAccessibleRole(*labels_[kNoticeField], AccessibleRole::Notification);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
      Arrange();
      event.Skip();
    });
  }

  [[nodiscard]] wxWindow& Label(int field) { return *labels_[static_cast<std::size_t>(field)]; }

  void SetStatusWidths(int count, const int widths[]) override {
    wxStatusBar::SetStatusWidths(count, widths);
    Arrange();
  }

 protected:
  void DoUpdateStatusText(int field) override {
    labels_[static_cast<std::size_t>(field)]->SetLabel(wxControl::EscapeMnemonics(GetStatusText(field)));
  }
  void DrawFieldText(wxDC&, const wxRect&, int, int) override {}

 private:
  void Arrange() {
    wxRect place;
    for (int field = 0; field < kFields; ++field) {
      if (GetFieldRect(field, place)) {
        wxStaticText& label = *labels_[static_cast<std::size_t>(field)];
        const int height = label.GetBestSize().y;
        label.SetSize(place.x + FromDIP(6), place.y + (place.height - height) / 2,
                      std::max(place.width - FromDIP(8), 0), height);
      }
    }
  }

  std::array<wxStaticText*, kFields> labels_{};
};

#endif

void ShowIn(wxStatusBar& bar, int field, const wxString& text) {
  if (bar.GetStatusText(field) == text) return;
  bar.SetStatusText(text, field);
  if (text.length() < kShortestAnnounced) return;
#ifdef __WXGTK__
  Announce(dynamic_cast<LabelledStatusBar&>(bar).Label(field));
#else
  Announce(bar);
#endif
}

}  // namespace

wxStatusBar* MakeStatusBar(wxFrame& frame, const wxString& sample) {
#ifdef __WXGTK__
  wxStatusBar* const bar = new LabelledStatusBar(frame);
#else
  wxStatusBar* const bar = new wxStatusBar(&frame, wxID_ANY, wxSTB_DEFAULT_STYLE, "StatusBar1");
  bar->SetFieldsCount(kFields);
#endif
  const std::array widths{bar->GetTextExtent(sample).x + frame.FromDIP(24), -1, 0};
  bar->SetStatusWidths(kFields, widths.data());
  frame.SetStatusBar(bar);
  return bar;
}

void ShowStatus(wxStatusBar& bar, const wxString& text) {
  ShowIn(bar, kMessageField, text);
}

void ShowNotice(wxStatusBar& bar, const wxString& text) {
  if (bar.GetStatusText(kNoticeField) == text) return;
  const int half = bar.GetClientSize().x / 2;
  const int wanted = text.empty() ? 0 : std::min(bar.GetTextExtent(text).x + bar.FromDIP(24), half);
  const std::array widths{bar.GetStatusWidth(0), -1, wanted};
  bar.SetStatusWidths(kFields, widths.data());
  ShowIn(bar, kNoticeField, text);
}

}  // namespace lorelin
