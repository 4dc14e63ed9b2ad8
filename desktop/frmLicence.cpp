#include "desktop/frmLicence.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/text.h"

namespace lorelin {

FrmLicence::FrmLicence(wxWindow* parent, const std::string& voice, const std::string& size,
                       const std::string& card)
    : wxDialog(parent, wxID_ANY, "Lizenz der Stimme", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmLicence") {
  const int gap = FromDIP(12);
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(
      new wxStaticText(this, wxID_ANY, ToWx("„" + voice + "“ (" + size + ") kommt mit dieser &Karte:")),
      wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  auto* const text = new wxTextCtrl(this, wxID_ANY, ToWx(card), wxDefaultPosition, FromDIP(wxSize(520, 260)),
                                    wxTE_MULTILINE | wxTE_READONLY);
  text->SetName("txtCard");
  SetAccessibleName(*text, "Karte der Stimme mit ihrer Lizenz");
  sizer->Add(text, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->AddStretchSpacer();
  row->Add(new wxButton(this, wxID_CANCEL, "&Abbrechen"), wxSizerFlags().Border(wxRIGHT, gap / 2));
  auto* const agree = new wxButton(this, wxID_OK, "&Einverstanden");
  row->Add(agree);
  sizer->Add(row, wxSizerFlags().Expand().Border(wxALL, gap));
  SetSizerAndFit(sizer);
  SetEscapeId(wxID_CANCEL);
  CentreOnParent();
  agree->SetDefault();
  text->SetFocus();
}

}  // namespace lorelin
