#include "desktop/frmSlider.h"

#include <wx/button.h>
#include <wx/sizer.h>

#include <utility>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/dialogButtons.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

constexpr int kSmallStep = 1;
constexpr int kLargeStep = 5;

const char* FormName(VoiceParameter parameter) {
  switch (parameter) {
    case VoiceParameter::Volume:
      return "frmVolume";
    case VoiceParameter::Speed:
      return "frmSpeed";
    case VoiceParameter::Pitch:
      return "frmPitch";
  }
  return "";
}

}  // namespace

FrmSlider::FrmSlider(wxWindow* parent, const SliderDialog& dialog, SettingsStore& settings,
                     std::function<void(std::int32_t)> sample)
    : wxDialog(parent, wxID_ANY, ToWx(dialog.caption), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, FormName(dialog.parameter)),
      dialog_(dialog),
      settings_(settings),
      sample_(std::move(sample)) {
  BuildControls();
  slider1_->SetValue(ShownPercentage(dialog_, settings_));
  SliderMoved();
  GetSizer()->SetSizeHints(this);
  CentreOnParent();
  slider1_->SetFocus();
}

void FrmSlider::BuildControls() {
  const int gap = FromDIP(12);
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(new wxStaticText(this, wxID_ANY, ToWx(dialog_.label)),
             wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  auto* const line = new wxBoxSizer(wxHORIZONTAL);
  slider1_ = new wxSlider(this, wxID_ANY, 0, 0, 100, wxDefaultPosition, FromDIP(wxSize(320, -1)),
                          wxSL_HORIZONTAL, wxDefaultValidator, "Slider1");
  slider1_->SetLineSize(kSmallStep);
  slider1_->SetPageSize(kLargeStep);
  SetAccessibleName(*slider1_, dialog_.caption);
  slider1_->Bind(wxEVT_SLIDER, [this](wxCommandEvent&) { SliderMoved(); });
  line->Add(slider1_, wxSizerFlags(1).CenterVertical());
  value_ = new wxStaticText(this, wxID_ANY, "100%", wxDefaultPosition, wxDefaultSize,
                            wxALIGN_RIGHT | wxST_NO_AUTORESIZE);
  line->Add(value_, wxSizerFlags().CenterVertical().Border(wxLEFT, gap / 2));
  sizer->Add(line, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  // The tip of the slider opens below it, and must not lie on the buttons.
  sizer->AddSpacer(GetCharHeight() + 2 * gap);
  sizer->AddStretchSpacer();
  const DialogButtons buttons = AddDialogButtons(*this, *sizer);
  buttons.ok->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Accept(); });
  buttons.sample->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { sample_(slider1_->GetValue()); });
  SetSizer(sizer);
}

void FrmSlider::SliderMoved() {
  const wxString text = wxString::Format("%d%%", slider1_->GetValue());
  slider1_->SetToolTip(text);
  value_->SetLabel(text);
}

void FrmSlider::Accept() {
  settings_.Save(dialog_.stored, std::to_string(slider1_->GetValue()));
  EndModal(wxID_OK);
}

}  // namespace lorelin
