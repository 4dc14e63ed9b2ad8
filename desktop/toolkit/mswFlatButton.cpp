#include "desktop/toolkit/flatButton.h"

#include <wx/dc.h>
#include <wx/msw/dc.h>
#include <wx/msw/private.h>
#include <wx/renderer.h>
#include <wx/settings.h>

namespace lorelin {
namespace {

constexpr int kMargin = 6;  // to the left and right of the text

// The system's own button without a border still has a box.
class FlatButton final : public wxButton {
 public:
  FlatButton(wxWindow* parent, const wxString& caption)
      : wxButton(parent, wxID_ANY, wxControl::EscapeMnemonics(caption), wxDefaultPosition, wxDefaultSize,
                 wxBORDER_NONE | wxBU_LEFT) {
    MakeOwnerDrawn();
    const auto hover = [this](bool hovered) {
      hovered_ = hovered;
      Refresh();
    };
    Bind(wxEVT_ENTER_WINDOW, [hover](wxMouseEvent& event) {
      hover(true);
      event.Skip();
    });
    Bind(wxEVT_LEAVE_WINDOW, [hover](wxMouseEvent& event) {
      hover(false);
      event.Skip();
    });
  }

  bool MSWOnDraw(WXDRAWITEMSTRUCT* item) override {
    const auto& draw = *reinterpret_cast<const DRAWITEMSTRUCT*>(item);
    wxDCTemp dc(static_cast<WXHDC>(draw.hDC), GetClientSize());
    const wxRect whole(GetClientSize());
    const bool lit = hovered_ || (draw.itemState & ODS_SELECTED) != 0;
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(lit ? wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT)
                    : GetParent()->GetBackgroundColour());
    dc.DrawRectangle(whole);
    dc.SetFont(GetFont());
    dc.SetTextForeground(lit ? wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT)
                             : GetParent()->GetForegroundColour());
    const int margin = FlatButtonMargin(*this);
    const wxString text = wxControl::Ellipsize(GetLabelText(), dc, wxELLIPSIZE_END, whole.width - 2 * margin);
    dc.DrawLabel(text, whole.Deflate(margin, 0), wxALIGN_LEFT | wxALIGN_CENTRE_VERTICAL);
    if ((draw.itemState & ODS_FOCUS) != 0)
      wxRendererNative::Get().DrawFocusRect(this, dc, whole.Deflate(1, 1));
    return true;
  }

 private:
  bool hovered_ = false;
};

}  // namespace

wxButton* NewFlatButton(wxWindow* parent, const wxString& caption) {
  return new FlatButton(parent, caption);
}

int FlatButtonMargin(const wxWindow& window) {
  return window.FromDIP(kMargin);
}

}  // namespace lorelin
