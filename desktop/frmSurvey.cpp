#include "desktop/frmSurvey.h"

#include <wx/button.h>
#include <wx/sizer.h>

#include "desktop/toolkit/icons.h"
#include "desktop/toolkit/plainText.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

constexpr int kTextWidth = 55;  // characters

}  // namespace

FrmSurvey::FrmSurvey(wxWindow* parent)
    : wxDialog(parent, wxID_ANY, "Umfrage", wxDefaultPosition, wxDefaultSize, wxDEFAULT_DIALOG_STYLE,
               "frmSurvey") {
  SetIcons(wxIconBundle(Icon("lorelin", 64).GetIcon(FromDIP(wxSize(64, 64)))));
  const int gap = FromDIP(16);
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  for (const char* const text :
       {"Würden Sie uns 2 Minuten Ihrer Zeit schenken und uns einige Fragen zu Lorelin beantworten? Unsere "
        "Umfrage ist "
        "völlig anonym und selbstverständlich freiwillig.",
        "Als Dankeschön erhalten Sie von uns einen 5 Euro Gutschein für unsere Programme!"}) {
    auto* const label = NewPlainText(this, ToWx(text));
    label->Wrap(kTextWidth * GetCharWidth());
    sizer->Add(label, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  }
  auto* const line = new wxBoxSizer(wxHORIZONTAL);
  line->AddStretchSpacer();
  AddButton(*line, "&Ja", "cmdYes", SurveyAnswer::Yes);
  AddButton(*line, "&Nein", "cmdNo", SurveyAnswer::No);
  AddButton(*line, "&Später erinnern", "cmdLater", SurveyAnswer::Later);
  sizer->Add(line, wxSizerFlags().Expand().Border(wxALL, gap));
  SetSizerAndFit(sizer);
  CentreOnScreen();
}

void FrmSurvey::AddButton(wxSizer& line, const char* caption, const char* name, SurveyAnswer answer) {
  // The last one is the one for Escape.
  const int id = answer == SurveyAnswer::Later ? wxID_CANCEL : wxID_ANY;
  auto* const button = new wxButton(this, id, ToWx(caption));
  button->SetName(name);
  button->Bind(wxEVT_BUTTON, [this, answer](wxCommandEvent&) {
    answer_ = answer;
    EndModal(wxID_OK);
  });
  line.Add(button, wxSizerFlags().Border(wxLEFT, FromDIP(8)));
}

}  // namespace lorelin
