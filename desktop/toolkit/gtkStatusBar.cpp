#include <wx/stattext.h>

#include <algorithm>
#include <array>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/statusBarFields.h"

namespace lorelin {
namespace {

constexpr auto kMessage = static_cast<std::size_t>(StatusField::Message);
constexpr auto kNotice = static_cast<std::size_t>(StatusField::Notice);

// The toolkit only draws the texts; here they are labels, which can be read and tell that they change.
class LabelledStatusBar final : public wxStatusBar {
 public:
  explicit LabelledStatusBar(wxFrame& frame)
      : wxStatusBar(&frame, wxID_ANY, wxSTB_DEFAULT_STYLE, "StatusBar1") {
    for (wxStaticText*& label : labels_) {
      label = new wxStaticText(this, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                               wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    }
    SetFieldsCount(kStatusFields);  // arranges them
    labels_[kMessage]->SetName("message");
    labels_[kNotice]->SetName("notice");
    SetMinHeight(labels_[0]->GetBestSize().y);
    SetAccessibleName(*this, "Statusleiste");
    SetAccessibleRole(*this, AccessibleRole::StatusBar);
    SetAccessibleRole(*labels_[kMessage], AccessibleRole::Notification);
    SetAccessibleRole(*labels_[kNotice], AccessibleRole::Notification);
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
    for (int field = 0; field < kStatusFields; ++field) {
      if (GetFieldRect(field, place)) {
        wxStaticText& label = *labels_[static_cast<std::size_t>(field)];
        const int height = label.GetBestSize().y;
        label.SetSize(place.x + FromDIP(6), place.y + (place.height - height) / 2,
                      std::max(place.width - FromDIP(8), 0), height);
      }
    }
  }

  std::array<wxStaticText*, kStatusFields> labels_{};
};

}  // namespace

wxStatusBar* MakeStatusFields(wxFrame& frame) {
  return new LabelledStatusBar(frame);
}

wxWindow& AnnouncedPart(wxStatusBar& bar, StatusField field) {
  return dynamic_cast<LabelledStatusBar&>(bar).Label(static_cast<int>(field));
}

}  // namespace lorelin
