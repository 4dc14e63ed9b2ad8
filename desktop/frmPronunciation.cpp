#include "desktop/frmPronunciation.h"

#include <wx/sizer.h>

#include <utility>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/dialogButtons.h"
#include "desktop/toolkit/text.h"
#include "speech/Pronunciations.h"

namespace lorelin {

FrmPronunciation::FrmPronunciation(wxWindow* parent, const OwnWord& word,
                                   std::function<void(const std::string&)> sample)
    : wxDialog(parent, wxID_ANY, ToWx("Aussprache ändern"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmPronunciation"),
      sample_(std::move(sample)) {
  SetSizer(new wxBoxSizer(wxVERTICAL));
  BuildFields(word);
  BuildButtons();
  GetSizer()->SetSizeHints(this);
  CentreOnParent();
  (word.written.empty() ? txtWritten_ : txtSpoken_)->SetFocus();
}

wxTextCtrl* FrmPronunciation::AddField(wxSizer& grid, const char* caption, const char* name,
                                       const std::string& text) {
  auto* const label = new wxStaticText(this, wxID_ANY, ToWx(caption));
  grid.Add(label, wxSizerFlags().CenterVertical());
  auto* const field = new wxTextCtrl(this, wxID_ANY, ToWx(text), wxDefaultPosition, FromDIP(wxSize(300, -1)),
                                     0, wxDefaultValidator, ToWx(name));
  SetAccessibleName(*field, FromWx(wxControl::RemoveMnemonics(ToWx(caption))));
  grid.Add(field, wxSizerFlags().Expand());
  return field;
}

void FrmPronunciation::BuildFields(const OwnWord& word) {
  const int gap = FromDIP(12);
  auto* const grid = new wxFlexGridSizer(2, FromDIP(8), FromDIP(8));
  grid->AddGrowableCol(1);
  txtWritten_ = AddField(*grid, "Im &Text steht:", "txtWritten", word.written);
  txtSpoken_ = AddField(*grid, "Ge&sprochen wird:", "txtSpoken", word.spoken);
  GetSizer()->Add(grid, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  optWhole_ = new wxRadioButton(this, wxID_ANY, ToWx("Nur das &ganze Wort"), wxDefaultPosition, wxDefaultSize,
                                wxRB_GROUP, wxDefaultValidator, "optWhole");
  optBeginning_ = new wxRadioButton(this, wxID_ANY, ToWx("Auch Wörter, die so &beginnen"), wxDefaultPosition,
                                    wxDefaultSize, 0, wxDefaultValidator, "optBeginning");
  (word.wholeWord ? optWhole_ : optBeginning_)->SetValue(true);
  chkCase_ = new wxCheckBox(this, wxID_ANY, ToWx("G&roß- und Kleinschreibung beachten"), wxDefaultPosition,
                            wxDefaultSize, 0, wxDefaultValidator, "chkCase");
  chkCase_->SetValue(word.matchCase);
  for (wxWindow* const control : {static_cast<wxWindow*>(optWhole_), static_cast<wxWindow*>(optBeginning_),
                                  static_cast<wxWindow*>(chkCase_)}) {
    GetSizer()->Add(control, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  }
  lblProblem_ =
      new wxStaticText(this, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize, 0, "lblProblem");
  GetSizer()->Add(lblProblem_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
}

void FrmPronunciation::BuildButtons() {
  const DialogButtons buttons = AddDialogButtons(*this, *GetSizer());
  buttons.ok->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Accept(); });
  buttons.sample->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { sample_(FromWx(txtSpoken_->GetValue())); });
}

OwnWord FrmPronunciation::Word() const {
  return {.written = FromWx(txtWritten_->GetValue().Strip(wxString::both)),
          .spoken = FromWx(txtSpoken_->GetValue().Strip(wxString::both)),
          .wholeWord = optWhole_->GetValue(),
          .matchCase = chkCase_->GetValue()};
}

void FrmPronunciation::Accept() {
  const auto problem = WordProblem(Word());
  if (!problem) return EndModal(wxID_OK);
  lblProblem_->SetLabel(ToWx(*problem));
  lblProblem_->Wrap(GetClientSize().x - FromDIP(24));
  GetSizer()->SetSizeHints(this);
  txtWritten_->SetFocus();
}

}  // namespace lorelin
