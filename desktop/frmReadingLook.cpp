#include "desktop/frmReadingLook.h"

#include <wx/button.h>
#include <wx/fontenum.h>
#include <wx/sizer.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/colours.h"
#include "desktop/toolkit/labelledControl.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

constexpr const char* kUsualFont = "wie gewohnt";
constexpr const char* kTooLittle =
    "Diese beiden Farben sind schwer zu\nunterscheiden: Die Schrift wird schwarz\noder weiß gezeigt.";

// The step that is nearest to a value from elsewhere.
template <typename Steps>
int Nearest(const Steps& steps, int value) {
  const auto found = std::min_element(steps.begin(), steps.end(), [&](const auto& a, const auto& b) {
    return std::abs(a.value - value) < std::abs(b.value - value);
  });
  return static_cast<int>(found - steps.begin());
}

wxArrayString FontEntries(const std::vector<std::string>& fonts) {
  wxArrayString entries;
  entries.Add(ToWx(kUsualFont));
  for (const std::string& font : fonts)
    entries.Add(ToWx(IsEasyToRead(font) ? font + " (leicht zu lesen)" : font));
  return entries;
}

wxArrayString SchemeEntries() {
  wxArrayString entries;
  for (const char* const name : {"wie das System", "Creme", "Dunkel", "Gelb auf Schwarz", "eigene"})
    entries.Add(ToWx(name));
  return entries;
}

}  // namespace

FrmReadingLook::FrmReadingLook(wxWindow* parent, const LookSettings& look, Parts parts)
    : wxDialog(parent, wxID_ANY, "Lesedarstellung", wxDefaultPosition, wxDefaultSize, wxDEFAULT_DIALOG_STYLE,
               "frmReadingLook"),
      parts_(std::move(parts)) {
  Build();
  Fill(look);
  ShowWhatCounts();
  SetEscapeId(wxID_CANCEL);
  // Beside the text that it changes, as far as there is room.
  if (parent != nullptr) Move(parent->GetPosition() + FromDIP(wxPoint(24, 96)));
  cboFont_->SetFocus();
}

void FrmReadingLook::Build() {
  static const std::vector<Step> kLines{
      {"einfach", 100}, {"1,25-fach", 125}, {"1,5-fach", 150}, {"1,75-fach", 175}, {"doppelt", 200}};
  static const std::vector<Step> kLetters{
      {"normal", 0}, {"etwas weiter", 5}, {"weit", 10}, {"sehr weit", 20}};
  static const std::vector<Step> kColumns{
      {"ganze Breite", 0}, {"100 Zeichen", 100}, {"80 Zeichen", 80}, {"65 Zeichen", 65}, {"45 Zeichen", 45}};
  const int gap = FromDIP(12);
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  auto* const grid = new wxFlexGridSizer(2, FromDIP(8), FromDIP(8));
  grid->AddGrowableCol(1);
  cboFont_ = AddChoice(*grid, "&Schrift:", "cboFont", FontEntries(parts_.fonts));
  txtPoints_ = new wxSpinCtrl(this, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                              wxSP_ARROW_KEYS, kFewestPoints, kMostPoints, parts_.usualPoints, "txtPoints");
  AddLabelled(*txtPoints_, *grid, "&Größe in Punkt:");
  txtPoints_->Bind(wxEVT_SPINCTRL, [this](wxSpinEvent&) { Changed(); });
  cboLines_ = AddSteps(*grid, "&Zeilenabstand:", "cboLines", kLines);
  cboLetters_ = AddSteps(*grid, "&Buchstabenabstand:", "cboLetters", kLetters);
  cboColumn_ = AddSteps(*grid, "Spalten&breite:", "cboColumn", kColumns);
  cboColours_ = AddChoice(*grid, "&Farben:", "cboColours", SchemeEntries());
  clrText_ = AddColour(*grid, "Farbe der S&chrift:", "clrText");
  clrGround_ = AddColour(*grid, "Farbe des &Hintergrunds:", "clrGround");
  lblContrast_ = new wxStaticText(this, wxID_ANY, ToWx(kTooLittle));
  sizer->Add(grid, wxSizerFlags(1).Expand().Border(wxALL, gap));
  sizer->Add(lblContrast_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, gap).ReserveSpaceEvenIfHidden());
  BuildButtons(*sizer);
  SetSizerAndFit(sizer);
}

void FrmReadingLook::BuildButtons(wxSizer& sizer) {
  const int gap = FromDIP(12);
  auto* const reset = new wxButton(this, wxID_ANY, ToWx("Zu&rücksetzen"));
  reset->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
    Fill({});
    Changed();
  });
  auto* const ok = new wxButton(this, wxID_OK, "OK");
  ok->SetDefault();
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(reset);
  row->AddStretchSpacer();
  row->AddSpacer(2 * gap);
  row->Add(new wxButton(this, wxID_CANCEL, "&Abbrechen"), wxSizerFlags().Border(wxRIGHT, gap / 2));
  row->Add(ok);
  sizer.Add(row, wxSizerFlags().Expand().Border(wxALL, gap));
}

wxChoice* FrmReadingLook::AddChoice(wxSizer& grid, const char* caption, const char* name,
                                    const wxArrayString& entries) {
  auto* const choice =
      new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, entries, 0, wxDefaultValidator, name);
  AddLabelled(*choice, grid, caption);
  choice->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { Changed(); });
  return choice;
}

wxChoice* FrmReadingLook::AddSteps(wxSizer& grid, const char* caption, const char* name,
                                   const std::vector<Step>& steps) {
  wxArrayString entries;
  for (const Step& step : steps) entries.Add(ToWx(step.caption));
  wxChoice* const choice = AddChoice(grid, caption, name, entries);
  choice->SetClientData(const_cast<std::vector<Step>*>(&steps));
  return choice;
}

wxColourPickerCtrl* FrmReadingLook::AddColour(wxSizer& grid, const char* caption, const char* name) {
  auto* const picker = new wxColourPickerCtrl(this, wxID_ANY, *wxBLACK, wxDefaultPosition, wxDefaultSize,
                                              wxCLRP_DEFAULT_STYLE, wxDefaultValidator, name);
  AddLabelled(*picker, grid, caption);
  picker->Bind(wxEVT_COLOURPICKER_CHANGED, [this](wxColourPickerEvent&) { Changed(); });
  return picker;
}

void FrmReadingLook::Fill(const LookSettings& look) {
  const auto select = [](wxChoice& choice, int value) {
    choice.SetSelection(Nearest(*static_cast<const std::vector<Step>*>(choice.GetClientData()), value));
  };
  const auto font = std::find(parts_.fonts.begin(), parts_.fonts.end(), look.font);
  cboFont_->SetSelection(font == parts_.fonts.end() ? 0 : 1 + static_cast<int>(font - parts_.fonts.begin()));
  txtPoints_->SetValue(look.points == 0 ? parts_.usualPoints : look.points);
  select(*cboLines_, look.lineSpacing);
  select(*cboLetters_, look.letterSpacing);
  select(*cboColumn_, look.columnWidth);
  cboColours_->SetSelection(static_cast<int>(look.scheme));
  clrText_->SetColour(WxColourOf(look.ownText));
  clrGround_->SetColour(WxColourOf(look.ownGround));
}

LookSettings FrmReadingLook::Look() const {
  const auto value = [](const wxChoice& choice) {
    const auto& steps = *static_cast<const std::vector<Step>*>(choice.GetClientData());
    return steps[static_cast<std::size_t>(std::max(0, choice.GetSelection()))].value;
  };
  LookSettings look;
  if (const int font = cboFont_->GetSelection(); font > 0)
    look.font = parts_.fonts[static_cast<std::size_t>(font) - 1];
  look.points = txtPoints_->GetValue() == parts_.usualPoints ? 0 : txtPoints_->GetValue();
  look.lineSpacing = value(*cboLines_);
  look.letterSpacing = value(*cboLetters_);
  look.columnWidth = value(*cboColumn_);
  look.scheme = static_cast<ColourScheme>(std::max(0, cboColours_->GetSelection()));
  look.ownText = ColourOf(clrText_->GetColour());
  look.ownGround = ColourOf(clrGround_->GetColour());
  return look;
}

void FrmReadingLook::Changed() {
  ShowWhatCounts();
  parts_.show(Look());
}

void FrmReadingLook::ShowWhatCounts() {
  cboFont_->Enable(parts_.canShow.font);
  txtPoints_->Enable(parts_.canShow.font);
  cboLines_->Enable(parts_.canShow.spacing);
  cboLetters_->Enable(parts_.canShow.spacing);
  cboColours_->Enable(parts_.canShow.colours);
  const LookSettings look = Look();
  const bool own = parts_.canShow.colours && look.scheme == ColourScheme::Own;
  clrText_->Enable(own);
  clrGround_->Enable(own);
  const bool tooLittle = own && !CanBeRead({.text = look.ownText, .ground = look.ownGround});
  if (lblContrast_->IsShown() == tooLittle) return;
  lblContrast_->Show(tooLittle);
  if (tooLittle) Announce(*lblContrast_);
}

void ChooseReadingLook(wxWindow* parent, SettingsStore& settings, ReadingLookView& view, int usualPoints) {
  const LookSettings before = LoadLook(settings);
  std::vector<std::string> fonts;
  for (const wxString& font : wxFontEnumerator::GetFacenames()) fonts.push_back(FromWx(font));
  const auto show = [&view](const LookSettings& look) { view.ShowLook(LookOf(look)); };
  FrmReadingLook dialog(parent, before,
                        {.fonts = FontsToOffer(std::move(fonts)),
                         .usualPoints = usualPoints,
                         .canShow = TextLook::CanShow(),
                         .show = show});
  if (dialog.ShowModal() != wxID_OK) return show(before);
  const LookSettings chosen = dialog.Look();
  show(chosen);
  SaveLook(settings, chosen);
}

}  // namespace lorelin
