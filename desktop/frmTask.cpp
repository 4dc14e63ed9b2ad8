#include "desktop/frmTask.h"

#include <wx/sizer.h>
#include <wx/statbox.h>

#include <utility>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/plainText.h"
#include "desktop/toolkit/text.h"
#include "desktop/toolkit/textField.h"

namespace lorelin {
namespace {

constexpr int kDescriptionWidth = 380;
constexpr int kDescriptionHeight = 76;  // the longest description

void Enable(wxTextCtrl& field) {
  if (field.IsEnabled()) return;
  field.Enable();
  field.ChangeValue("");
}

void Disable(wxTextCtrl& field) {
  field.Disable();
  field.ChangeValue(ToWx(CommandPicker::kNotNeeded));
}

}  // namespace

FrmTask::FrmTask(wxWindow* parent, MessageBoxes& messageBoxes, std::function<void(const std::string&)> insert)
    : wxDialog(parent, wxID_ANY, ToWx("Befehl hinzufügen"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmTask"),
      messageBoxes_(messageBoxes),
      insert_(std::move(insert)) {
  BuildControls();
  FillCMB();
  cmbCommand_->SetSelection(0);
  ChooseCommand();
  GetSizer()->SetSizeHints(this);
  Bind(wxEVT_CHAR_HOOK, &FrmTask::OnCharHook, this);
}

void FrmTask::BuildControls() {
  const int gap = FromDIP(8);
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(NewPlainText(this, ToWx("Hier können Sie Ihrem Taskscript Befehle hinzufügen.")),
             wxSizerFlags().Border(wxALL, 2 * gap));
  auto* const fields = new wxFlexGridSizer(2, gap, gap);
  fields->AddGrowableCol(1);
  // A label belongs to the control that is made after it, for access keys and for assistive technology.
  const auto label = [&](const char* text) {
    fields->Add(new wxStaticText(this, wxID_ANY, text), wxSizerFlags().CenterVertical());
  };
  const auto field = [&](const char* caption, const char* name) {
    label(caption);
    auto* const made = MakeTextField(this, name);
    fields->Add(made, wxSizerFlags().Expand());
    return made;
  };
  label("&Befehl:");
  cmbCommand_ = new wxChoice(this, wxID_ANY);
  cmbCommand_->SetName("cmbCommand");
  fields->Add(cmbCommand_, wxSizerFlags().Expand());
  txtParameter_ = field("&1. Parameter:", "txtParameter");
  txtParameter2_ = field("&2. Parameter:", "txtParameter2");
  sizer->Add(fields, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, 2 * gap));
  sizer->Add(BuildInfo(), wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxTOP, 2 * gap));
  auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
  auto* const insert = new wxButton(this, wxID_ANY, ToWx("&Einfügen"));
  insert->SetDefault();
  insert->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { InsertLine(); });
  auto* const close = new wxButton(this, wxID_CANCEL, ToWx("&Schließen"));
  close->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Hide(); });
  buttons->AddStretchSpacer();
  buttons->Add(close, wxSizerFlags().Border(wxRIGHT, gap));
  buttons->Add(insert);
  sizer->Add(buttons, wxSizerFlags().Expand().Border(wxALL, 2 * gap));
  SetSizer(sizer);
  SetEscapeId(wxID_CANCEL);
  SetAccessibleName(*cmbCommand_, "Befehl");
  SetAccessibleName(*txtParameter_, "1. Parameter");
  SetAccessibleName(*txtParameter2_, "2. Parameter");
  cmbCommand_->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ChooseCommand(); });
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { Hide(); });
}

wxSizer* FrmTask::BuildInfo() {
  auto* const frame = new wxStaticBoxSizer(wxVERTICAL, this, "Befehlsinfo");
  wxStaticBox* const box = frame->GetStaticBox();
  lblCommandBold_ =
      new wxStaticText(box, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblCommandBold");
  lblCommandBold_->SetFont(lblCommandBold_->GetFont().Bold());
  lblParameter_ = new wxStaticText(box, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblParameter");
  lblDesc_ =
      new wxStaticText(box, wxID_ANY, "", wxDefaultPosition,
                       FromDIP(wxSize(kDescriptionWidth, kDescriptionHeight)), wxST_NO_AUTORESIZE, "lblDesc");
  auto* const line = new wxBoxSizer(wxHORIZONTAL);
  line->Add(lblCommandBold_);
  line->Add(lblParameter_);
  frame->Add(line, wxSizerFlags().Border(wxALL, FromDIP(8)));
  frame->Add(lblDesc_, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(8)));
  return frame;
}

void FrmTask::FillCMB() {
  cmbCommand_->Clear();
  for (const std::string& name : picker_.Names()) cmbCommand_->Append(ToWx(name));
}

std::size_t FrmTask::Index() const {
  return static_cast<std::size_t>(cmbCommand_->GetSelection());
}

void FrmTask::ChooseCommand() {
  const std::size_t index = Index();
  lblCommandBold_->SetLabel(ToWx(picker_.Name(index)));
  lblParameter_->SetLabel(ToWx(picker_.ParameterHint(index)));
  lblDesc_->SetLabel(ToWx(picker_.Description(index)));
  SetAccessibleDescription(*cmbCommand_, picker_.ParameterHint(index) + " " + picker_.Description(index));
  if (picker_.NeedsParameter1(index)) {
    EnableParameter1();
  } else {
    DisableParameter1();
  }
  if (picker_.NeedsParameter2(index)) {
    EnableParameter2();
  } else {
    DisableParameter2();
  }
  Layout();
}

void FrmTask::EnableParameter1() {
  lorelin::Enable(*txtParameter_);
}
void FrmTask::DisableParameter1() {
  lorelin::Disable(*txtParameter_);
}
void FrmTask::EnableParameter2() {
  lorelin::Enable(*txtParameter2_);
}
void FrmTask::DisableParameter2() {
  lorelin::Disable(*txtParameter2_);
}

void FrmTask::InsertLine() {
  const auto line =
      picker_.Line(Index(), FromWx(txtParameter_->GetValue()), FromWx(txtParameter2_->GetValue()));
  if (!line) return ShowError();
  insert_(*line);
}

void FrmTask::ShowError() {
  messageBoxes_.Show(picker_.ErrorText(Index()), "Fehler", MessageIcon::Exclamation, MessageButtons::Ok);
  txtParameter_->SetFocus();
}

// F5 tells the place of the command in the list.
void FrmTask::OnCharHook(wxKeyEvent& event) {
  if (event.GetKeyCode() != WXK_F5 || event.HasAnyModifiers()) return event.Skip();
  messageBoxes_.Show(std::to_string(cmbCommand_->GetSelection()), "Lorelin", MessageIcon::None,
                     MessageButtons::Ok);
}

}  // namespace lorelin
