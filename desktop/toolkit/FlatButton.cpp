#include "desktop/toolkit/FlatButton.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#elif defined(__WXMSW__)
#include <wx/dc.h>
#include <wx/msw/dc.h>
#include <wx/msw/private.h>
#include <wx/renderer.h>
#include <wx/settings.h>
#endif

namespace lorelin {

#ifdef __WXGTK__

FlatButton::FlatButton(wxWindow* parent, const wxString& caption)
    : wxButton(parent, wxID_ANY, wxControl::EscapeMnemonics(caption), wxDefaultPosition, wxDefaultSize,
               wxBORDER_NONE | wxBU_LEFT) {
  GtkWidget* const label = gtk_bin_get_child(GTK_BIN(m_widget));
  if (GTK_IS_LABEL(label)) gtk_label_set_ellipsize(GTK_LABEL(label), PANGO_ELLIPSIZE_END);
}

int FlatButton::TextMargin(const wxWindow&) {
  return 0;
}

#elif defined(__WXMSW__)

namespace {

constexpr int kMargin = 6;  // to the left and right of the text

}  // namespace

// The system's own button without a border still has a box.
FlatButton::FlatButton(wxWindow* parent, const wxString& caption)
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

int FlatButton::TextMargin(const wxWindow& window) {
  return window.FromDIP(kMargin);
}

bool FlatButton::MSWOnDraw(WXDRAWITEMSTRUCT* item) {
  const auto& draw = *reinterpret_cast<const DRAWITEMSTRUCT*>(item);
  wxDCTemp dc(static_cast<WXHDC>(draw.hDC), GetClientSize());
  const wxRect whole(GetClientSize());
  const bool lit = hovered_ || (draw.itemState & ODS_SELECTED) != 0;
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(lit ? wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT) : GetParent()->GetBackgroundColour());
  dc.DrawRectangle(whole);
  dc.SetFont(GetFont());
  dc.SetTextForeground(lit ? wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT)
                           : GetParent()->GetForegroundColour());
  const int margin = TextMargin(*this);
  const wxString text = wxControl::Ellipsize(GetLabelText(), dc, wxELLIPSIZE_END, whole.width - 2 * margin);
  dc.DrawLabel(text, whole.Deflate(margin, 0), wxALIGN_LEFT | wxALIGN_CENTRE_VERTICAL);
  if ((draw.itemState & ODS_FOCUS) != 0) wxRendererNative::Get().DrawFocusRect(this, dc, whole.Deflate(1, 1));
  return true;
}

#endif

}  // namespace lorelin
