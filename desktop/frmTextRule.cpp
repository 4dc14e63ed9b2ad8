#include "desktop/frmTextRule.h"

#include <wx/sizer.h>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/text.h"
#include "speech/Pronunciations.h"

namespace lorelin {
namespace {

constexpr const char* kExample = "Wien [1] hat rund 2 Millionen Einwohner (Stand 2024).";
constexpr const char* kHint =
    "Ein regulärer Ausdruck: . steht für ein beliebiges Zeichen, \\d für eine Ziffer, [^\\]]* für alles "
    "außer ],\n"
    "\\[ für die Klammer selbst. In der Ersetzung stehen $1 bis $9 für das, was in runden Klammern gefunden "
    "wurde;\n"
    "eine leere Ersetzung übergeht das Gefundene.";

}  // namespace

FrmTextRule::FrmTextRule(wxWindow* parent, const ReadingRule& rule)
    : wxDialog(parent, wxID_ANY, ToWx("Leseregel"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmTextRule"),
      on_(rule.on) {
  const int gap = FromDIP(12);
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  auto* const grid = new wxFlexGridSizer(2, FromDIP(8), FromDIP(8));
  grid->AddGrowableCol(1);
  txtPattern_ = AddField(*grid, "&Ausdruck:", "txtPattern", rule.pattern);
  txtReplacement_ = AddField(*grid, "&Ersetzung:", "txtReplacement", rule.replacement);
  txtExample_ = AddField(*grid, "&Beispiel:", "txtExample", kExample);
  txtResult_ = AddField(*grid, "E&rgebnis:", "txtResult", "");
  txtResult_->SetEditable(false);
  sizer->Add(new wxStaticText(this, wxID_ANY, ToWx(kHint)),
             wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  sizer->Add(grid, wxSizerFlags(1).Expand().Border(wxALL, gap));
  sizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL),
             wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  SetSizerAndFit(sizer);
  for (wxTextCtrl* const field : {txtPattern_, txtReplacement_, txtExample_})
    field->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { ShowResult(); });
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent&) { Accept(); }, wxID_OK);
  ShowResult();
  CentreOnParent();
  txtPattern_->SetFocus();
}

wxTextCtrl* FrmTextRule::AddField(wxSizer& grid, const char* caption, const char* name,
                                  const std::string& text) {
  grid.Add(new wxStaticText(this, wxID_ANY, ToWx(caption)), wxSizerFlags().CenterVertical());
  auto* const field = new wxTextCtrl(this, wxID_ANY, ToWx(text), wxDefaultPosition, FromDIP(wxSize(420, -1)),
                                     0, wxDefaultValidator, ToWx(name));
  SetAccessibleName(*field, FromWx(wxControl::RemoveMnemonics(ToWx(caption))));
  grid.Add(field, wxSizerFlags().Expand());
  return field;
}

ReadingRule FrmTextRule::Rule() const {
  return {.on = on_,
          .pattern = FromWx(txtPattern_->GetValue()),
          .replacement = FromWx(txtReplacement_->GetValue())};
}

void FrmTextRule::ShowResult() {
  ReadingRule rule = Rule();
  rule.on = true;
  const auto problem = RuleProblem(rule);
  txtResult_->ChangeValue(
      ToWx(problem ? *problem : RulesThatCount({rule}).Apply(FromWx(txtExample_->GetValue())).text));
}

// What is wrong stands in the field of the result; the focus tells that something is.
void FrmTextRule::Accept() {
  if (!RuleProblem(Rule())) return EndModal(wxID_OK);
  ShowResult();
  txtResult_->SetFocus();
}

}  // namespace lorelin
