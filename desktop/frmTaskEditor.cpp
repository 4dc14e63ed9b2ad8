#include "desktop/frmTaskEditor.h"

#include <wx/button.h>
#include <wx/display.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/wrapsizer.h>

#include <algorithm>
#include <array>

#include "base/text.h"
#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/fontScale.h"
#include "desktop/toolkit/icons.h"
#include "desktop/toolkit/innerMargins.h"
#include "desktop/toolkit/text.h"
#include "desktop/toolkit/textField.h"
#include "scripts/scriptChecker.h"
#include "scripts/scriptColours.h"

namespace lorelin {
namespace {

constexpr int kTypingPause = 150;               // milliseconds
constexpr std::size_t kMostColoured = 200'000;  // bytes; colouring more would hold typing up
constexpr double kDark = 0.5;

struct Colours {
  std::array<const char*, 4> light;
  std::array<const char*, 4> dark;
};

// In the order of ScriptPart; each has a contrast of at least 4.5 to its ground.
constexpr Colours kColours{.light = {"#5f6b62", "#1a4fa0", "#7a3e00", "#7b1fa2"},
                           .dark = {"#a3b1a6", "#8ab8ff", "#f0b878", "#dda0f5"}};

bool IsDark(const wxColour& colour) {
  return colour.GetLuminance() < kDark;
}

// To the right of the script when there is room, so that both can be seen.
void PlaceBeside(wxWindow& picker, const wxWindow& editor) {
  const wxRect screen = wxDisplay(&editor).GetClientArea();
  const wxRect beside(wxPoint(editor.GetScreenRect().GetRight(), editor.GetScreenRect().GetTop()),
                      picker.GetSize());
  if (screen.Contains(beside)) {
    picker.SetPosition(beside.GetPosition());
  } else {
    picker.SetPosition(wxPoint(
        std::max(screen.x, std::min(beside.x, screen.GetRight() - beside.width)),
        std::max(screen.y, std::min(beside.y + beside.height / 3, screen.GetBottom() - beside.height))));
  }
}

}  // namespace

FrmTaskEditor::FrmTaskEditor(wxWindow* parent, const Parts& parts)
    : wxFrame(parent, wxID_ANY, "Taskscript Editor", wxDefaultPosition, wxDefaultSize,
              wxDEFAULT_FRAME_STYLE | wxTAB_TRAVERSAL, "frmTaskEditor"),
      messageBoxes_(parts.messageBoxes),
      showHelp_(parts.showHelp),
      editor_({.view = *this,
               .fileDialogs = parts.fileDialogs,
               .files = parts.files,
               .messageBoxes = parts.messageBoxes,
               .programFolder = parts.programFolder,
               .scriptsChanged = parts.scriptsChanged}) {
  SetIcons(wxIconBundle(Icon("lorelin", 64).GetIcon(FromDIP(wxSize(64, 64)))));
  BuildControls();
  BindKeys();
  SetMinClientSize(FromDIP(wxSize(520, 380)));
  SetClientSize(ScaledByFont(*this, wxSize(760, 560)));
  splitter_->SetSashPosition(ScaledByFont(*this, wxSize(0, 330)).y);
  pause_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
    Colour();
    CheckText();
  });
  Bind(wxEVT_CLOSE_WINDOW, &FrmTaskEditor::OnClose, this);
  CheckText();
}

void FrmTaskEditor::BuildControls() {
  const int gap = FromDIP(12);
  // A panel gives the frame its background and its tab order.
  auto* const panel = new wxPanel(this);
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  auto* const nameLine = new wxBoxSizer(wxHORIZONTAL);
  nameLine->Add(new wxStaticText(panel, wxID_ANY, "N&ame des Taskscripts:"),
                wxSizerFlags().CenterVertical().Border(wxRIGHT, FromDIP(8)));
  txtSkriptname_ = MakeTextField(panel, "txtSkriptname");
  SetAccessibleName(*txtSkriptname_, "Name des Taskscripts");
  nameLine->Add(txtSkriptname_, wxSizerFlags(1).CenterVertical());
  sizer->Add(nameLine, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  nameHint_ = new wxStaticText(panel, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblNameHint");
  sizer->Add(nameHint_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  nameHint_->Hide();
  txtSkriptname_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { editor_.NameChanged(); });
  sizer->AddSpacer(gap);
  splitter_ = new wxSplitterWindow(panel, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                   wxSP_LIVE_UPDATE | wxSP_NOBORDER);
  splitter_->SetMinimumPaneSize(FromDIP(90));
  splitter_->SetSashGravity(1.0);
  splitter_->SplitHorizontally(BuildText(splitter_), BuildFindings(splitter_));
  sizer->Add(splitter_, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));
  panel->SetSizer(sizer);
  sizer->Add(BuildButtons(), wxSizerFlags().Expand().Border(wxALL, gap));
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(panel, wxSizerFlags(1).Expand());
  SetSizer(whole);
}

wxWindow* FrmTaskEditor::BuildText(wxWindow* parent) {
  rtfSkript_ = new wxTextCtrl(parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                              wxTE_MULTILINE | wxTE_RICH2 | wxTE_DONTWRAP | wxTE_NOHIDESEL,
                              wxDefaultValidator, "rtfSkript");
  rtfSkript_->SetFont(wxFontInfo(rtfSkript_->GetFont().GetPointSize() * 1.1).Family(wxFONTFAMILY_TELETYPE));
  SetInnerMargins(*rtfSkript_, FromDIP(10), FromDIP(8));
  SetAccessibleName(*rtfSkript_, "Taskscript");
  buffer_ = std::make_unique<RichTextBuffer>(*rtfSkript_, rtfSkript_->GetFont());
  rtfSkript_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { TextChanged(); });
  return rtfSkript_;
}

wxWindow* FrmTaskEditor::BuildFindings(wxWindow* parent) {
  auto* const panel = new wxPanel(parent);
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(new wxStaticText(panel, wxID_ANY, ToWx("&Prüfung:")),
             wxSizerFlags().Border(wxTOP | wxBOTTOM, FromDIP(6)));
  findings_ = new wxListBox(panel, wxID_ANY);
  findings_->SetName("findings");
  SetAccessibleName(*findings_, "Prüfung");
  findings_->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { GoToFinding(); });
  sizer->Add(findings_, wxSizerFlags(1).Expand());
  panel->SetSizer(sizer);
  return panel;
}

wxSizer* FrmTaskEditor::BuildButtons() {
  auto* const buttons = new wxWrapSizer(wxHORIZONTAL, wxREMOVE_LEADING_SPACES);
  wxWindow* const parent = splitter_->GetParent();
  const auto add = [&](const char* label, const std::function<void()>& action) {
    auto* const button = new wxButton(parent, wxID_ANY, ToWx(label));
    button->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
    buttons->Add(button, wxSizerFlags().Border(wxRIGHT | wxBOTTOM, FromDIP(8)));
  };
  add("&Neues Taskscript", [this] { editor_.New(); });
  add("Taskscript ö&ffnen", [this] { editor_.Open(); });
  add("Taskscript &speichern", [this] { editor_.Save(); });
  add("&Befehl hinzufügen", [this] { ShowPicker(); });
  add("&Hilfe", [this] { showHelp_(); });
  return buttons;
}

void FrmTaskEditor::BindKeys() {
  struct Key {
    int flags;
    int code;
    std::function<void()> action;
    int id = wxWindow::NewControlId();
  };
  const std::vector<Key> keys{{wxACCEL_CTRL, 'N', [this] { editor_.New(); }},
                              {wxACCEL_CTRL, 'O', [this] { editor_.Open(); }},
                              {wxACCEL_CTRL, 'S', [this] { editor_.Save(); }},
                              {wxACCEL_CTRL, 'W', [this] { Close(); }},
                              {wxACCEL_CTRL, 'Z', [this] { buffer_->Undo(); }, wxID_UNDO},
                              {wxACCEL_CTRL, 'Y', [this] { buffer_->Redo(); }, wxID_REDO},
                              {wxACCEL_NORMAL, WXK_F2, [this] { ShowPicker(); }},
                              {wxACCEL_NORMAL, WXK_F1, [this] { showHelp_(); }}};
  std::vector<wxAcceleratorEntry> entries;
  for (const Key& key : keys) {
    entries.emplace_back(key.flags, key.code, key.id);
    Bind(
        wxEVT_MENU, [action = key.action](wxCommandEvent&) { action(); }, key.id);
  }
  SetAcceleratorTable(wxAcceleratorTable(static_cast<int>(entries.size()), entries.data()));
  findings_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER) return GoToFinding();
    event.Skip();
  });
}

void FrmTaskEditor::Open() {
  if (!IsShown()) CentreOnParent();
  Show();
  if (IsIconized()) Iconize(false);
  Raise();
  rtfSkript_->SetFocus();
}

bool FrmTaskEditor::MayClose() {
  return !IsShown() || editor_.MayDiscard();
}

void FrmTaskEditor::OnClose(wxCloseEvent& event) {
  if (!editor_.MayDiscard()) {
    if (event.CanVeto()) event.Veto();
    return;
  }
  editor_.Discard();
  if (frmTask_ != nullptr) frmTask_->Hide();
  Hide();
}

FrmTask& FrmTaskEditor::Picker() {
  if (frmTask_ == nullptr) {
    frmTask_ = new FrmTask(this, messageBoxes_, [this](const std::string& line) { editor_.Append(line); });
  }
  return *frmTask_;
}

void FrmTaskEditor::ShowPicker() {
  FrmTask& picker = Picker();
  if (!picker.IsShown()) PlaceBeside(picker, *this);
  picker.Show();
  picker.Raise();
}

std::string FrmTaskEditor::ScriptName() {
  return FromWx(txtSkriptname_->GetValue());
}
void FrmTaskEditor::SetScriptName(std::string_view name) {
  txtSkriptname_->SetValue(ToWx(name));
}
std::string FrmTaskEditor::ScriptText() {
  return FromWx(rtfSkript_->GetValue());
}
void FrmTaskEditor::SetScriptText(std::string_view text) {
  buffer_->ReplaceText(text);
}

void FrmTaskEditor::AppendText(std::string_view text) {
  rtfSkript_->AppendText(ToWx(text));
  rtfSkript_->ShowPosition(rtfSkript_->GetLastPosition());
}

void FrmTaskEditor::ShowNameHint(std::string_view text) {
  const wxString hint = ToWx(text);
  if (hint == nameHint_->GetLabel()) return;
  nameHint_->SetLabel(hint);
  nameHint_->Wrap(nameHint_->GetParent()->GetClientSize().x - FromDIP(24));
  nameHint_->Show(!hint.empty());
  nameHint_->GetParent()->Layout();
}

// What was typed is coloured and checked when the hands rest.
void FrmTaskEditor::TextChanged() {
  pause_.StartOnce(kTypingPause);
}

void FrmTaskEditor::Colour() {
  const std::string text = ScriptText();
  const wxColour ground = rtfSkript_->GetBackgroundColour();
  const auto& colours = IsDark(ground) ? kColours.dark : kColours.light;
  rtfSkript_->SetStyle(0, rtfSkript_->GetLastPosition(), wxTextAttr(rtfSkript_->GetForegroundColour()));
  if (text.size() > kMostColoured) return;
  for (const ColouredSpan& span : ColourScript(text)) {
    const auto begin = static_cast<long>(span.begin);
    rtfSkript_->SetStyle(begin, begin + static_cast<long>(span.length),
                         wxTextAttr(wxColour(colours[static_cast<std::size_t>(span.part)])));
  }
}

void FrmTaskEditor::CheckText() {
  std::string text = ScriptText();
  ReplaceAll(text, "\n", "\r\n");
  wxArrayString lines;
  findingLines_.clear();
  for (const ScriptFinding& finding : CheckScript(text)) {
    lines.Add(ToWx("Zeile " + std::to_string(finding.line) +
                   (finding.kind == FindingKind::Hint ? ", Hinweis: " : ": ") + finding.message));
    findingLines_.push_back(finding.line);
  }
  if (lines.empty()) lines.Add(ToWx("Keine Auffälligkeiten."));
  if (lines != findings_->GetStrings()) findings_->Set(lines);
}

void FrmTaskEditor::GoToFinding() {
  const int selected = findings_->GetSelection();
  if (selected < 0 || static_cast<std::size_t>(selected) >= findingLines_.size()) return;
  const auto line = static_cast<long>(findingLines_[static_cast<std::size_t>(selected)]) - 1;
  rtfSkript_->SetInsertionPoint(rtfSkript_->XYToPosition(0, line));
  rtfSkript_->ShowPosition(rtfSkript_->GetInsertionPoint());
  rtfSkript_->SetFocus();
}

}  // namespace lorelin
