#include "desktop/toolkit/flatButton.h"

#include <gtk/gtk.h>

namespace lorelin {

wxButton* NewFlatButton(wxWindow* parent, const wxString& caption) {
  auto* const button = new wxButton(parent, wxID_ANY, wxControl::EscapeMnemonics(caption), wxDefaultPosition,
                                    wxDefaultSize, wxBORDER_NONE | wxBU_LEFT);
  GtkWidget* const label = gtk_bin_get_child(GTK_BIN(button->GetHandle()));
  if (GTK_IS_LABEL(label)) gtk_label_set_ellipsize(GTK_LABEL(label), PANGO_ELLIPSIZE_END);
  return button;
}

int FlatButtonMargin(const wxWindow&) {
  return 0;
}

}  // namespace lorelin
