#include "desktop/frmVoice.h"

#include <wx/sizer.h>

#include <utility>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/dialogButtons.h"
#include "desktop/toolkit/text.h"

namespace lorelin {

FrmVoice::FrmVoice(wxWindow* parent, VoiceChoice voices, std::function<void(std::int32_t)> sample)
    : wxDialog(parent, wxID_ANY, ToWx("Stimme wählen"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmVoice"),
      voices_(voices),
      sample_(std::move(sample)) {
  BuildControls();
  for (const std::string& name : voices_.Names()) cmbVoice_->Append(ToWx(name));
  const std::int32_t stored = voices_.StoredPosition();
  if (stored >= 0 && static_cast<unsigned>(stored) < cmbVoice_->GetCount()) cmbVoice_->SetSelection(stored);
  SelectionChanged();
  GetSizer()->SetSizeHints(this);
  CentreOnParent();
  cmbVoice_->SetFocus();
}

void FrmVoice::BuildControls() {
  const int gap = FromDIP(12);
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(new wxStaticText(this, wxID_ANY, "&Stimme / Sprecher:"),
             wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  cmbVoice_ = new wxChoice(this, wxID_ANY);
  cmbVoice_->SetName("cmbVoice");
  SetAccessibleName(*cmbVoice_, "Stimme / Sprecher");
  cmbVoice_->SetMinSize(FromDIP(wxSize(320, -1)));
  cmbVoice_->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { SelectionChanged(); });
  sizer->Add(cmbVoice_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  lblLNG_ = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblLNG");
  sizer->Add(lblLNG_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  lblGender_ = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblGender");
  sizer->AddSpacer(gap / 2);
  sizer->Add(lblGender_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, gap));
  sizer->AddStretchSpacer();
  const DialogButtons buttons = AddDialogButtons(*this, *sizer);
  sampleButton_ = buttons.sample;
  buttons.ok->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Accept(); });
  buttons.sample->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { sample_(cmbVoice_->GetSelection()); });
  SetSizer(sizer);
}

void FrmVoice::SelectionChanged() {
  const std::int32_t position = cmbVoice_->GetSelection();
  const bool chosen = position != wxNOT_FOUND;
  lblLNG_->SetLabel(ToWx(chosen
                             ? voices_.LanguageLabel(position)
                             : "Die gespeicherte Stimme gibt es nicht mehr. Bitte wählen Sie eine andere."));
  lblGender_->SetLabel(chosen ? ToWx(voices_.GenderLabel(position)) : "");
  sampleButton_->Enable(chosen);
  Layout();
}

// Without a choice there is nothing to store.
void FrmVoice::Accept() {
  if (cmbVoice_->GetSelection() != wxNOT_FOUND) voices_.Save(cmbVoice_->GetSelection());
  EndModal(wxID_OK);
}

}  // namespace lorelin
