#include "desktop/toolkit/addressDialog.h"

#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/dialogButtons.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

class AddressDialog final : public wxDialog {
 public:
  AddressDialog(wxWindow* parent, const std::string& proposed)
      : wxDialog(parent, wxID_ANY, ToWx("Adresse öffnen"), wxDefaultPosition, wxDefaultSize,
                 wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmAddress") {
    const wxSizerFlags placed = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(12));
    SetSizer(new wxBoxSizer(wxVERTICAL));
    GetSizer()->Add(new wxStaticText(this, wxID_ANY, ToWx("&Adresse der Seite im Internet:")), placed);
    txtAddress_ = new wxTextCtrl(this, wxID_ANY, ToWx(proposed), wxDefaultPosition, FromDIP(wxSize(460, -1)),
                                 0, wxDefaultValidator, "txtAddress");
    SetAccessibleName(*txtAddress_, "Adresse der Seite im Internet");
    GetSizer()->Add(txtAddress_, placed);
    GetSizer()->Add(new wxStaticText(this, wxID_ANY,
                                     ToWx("Lorelin zeigt den Artikel der Seite, ohne Menüs und Werbung.")),
                    placed);
    const DialogButtons buttons = AddDialogButtons(*this, *GetSizer());
    buttons.sample->Hide();
    buttons.ok->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { EndModal(wxID_OK); });
    buttons.ok->Bind(wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) {
      event.Enable(!txtAddress_->GetValue().Strip(wxString::both).empty());
    });
    GetSizer()->SetSizeHints(this);
    CentreOnParent();
    txtAddress_->SetFocus();
    txtAddress_->SelectAll();
  }

  [[nodiscard]] std::string Address() const { return FromWx(txtAddress_->GetValue()); }

 private:
  wxTextCtrl* txtAddress_ = nullptr;
};

}  // namespace

std::optional<std::string> AskForWebAddress(wxWindow* parent, const std::string& proposed) {
  AddressDialog dialog(parent, proposed);
  if (dialog.ShowModal() != wxID_OK) return std::nullopt;
  return dialog.Address();
}

}  // namespace lorelin
