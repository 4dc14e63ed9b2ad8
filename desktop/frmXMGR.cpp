#include "desktop/frmXMGR.h"

#include <wx/combobox.h>
#include <wx/dialog.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/icons.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

enum Column : unsigned { kActive, kName, kObject, kState };

// Asks for name and object name of a new registration.
class AddDialog final : public wxDialog {
 public:
  AddDialog(wxWindow* parent, const std::vector<FrmXMGR::Shipped>& shipped)
      : wxDialog(parent, wxID_ANY, ToWx("Erweiterung hinzufügen"), wxDefaultPosition, wxDefaultSize,
                 wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmAddExtension") {
    const int gap = FromDIP(12);
    auto* const grid = new wxFlexGridSizer(2, FromDIP(8), FromDIP(8));
    grid->AddGrowableCol(1);
    grid->Add(new wxStaticText(this, wxID_ANY, "&Name:"), wxSizerFlags().CenterVertical());
    name_ = new wxTextCtrl(this, wxID_ANY, wxEmptyString, wxDefaultPosition, FromDIP(wxSize(320, -1)), 0,
                           wxDefaultValidator, "txtName");
    SetAccessibleName(*name_, "Name");
    grid->Add(name_, wxSizerFlags().Expand());
    grid->Add(new wxStaticText(this, wxID_ANY, "&Objektname:"), wxSizerFlags().CenterVertical());
    object_ = new wxComboBox(this, wxID_ANY);
    object_->SetName("cmbObjectName");
    SetAccessibleName(*object_, "Objektname");
    for (const auto& one : shipped) object_->Append(ToWx(one.objectName));
    object_->Bind(wxEVT_COMBOBOX, [this, shipped](wxCommandEvent& event) {
      const auto index = static_cast<std::size_t>(event.GetInt());
      if (name_->IsEmpty() && index < shipped.size()) name_->SetValue(ToWx(shipped[index].name));
    });
    grid->Add(object_, wxSizerFlags().Expand());
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(grid, wxSizerFlags(1).Expand().Border(wxALL, gap));
    sizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL),
               wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizerAndFit(sizer);
    CentreOnParent();
    name_->SetFocus();
  }
  [[nodiscard]] std::string NewName() const { return FromWx(name_->GetValue()); }
  [[nodiscard]] std::string ObjectName() const { return FromWx(object_->GetValue()); }

 private:
  wxTextCtrl* name_;
  wxComboBox* object_;
};

}  // namespace

FrmXMGR::FrmXMGR(Parts parts)
    : wxFrame(nullptr, wxID_ANY, "Erweiterungen verwalten", wxDefaultPosition, wxDefaultSize,
              wxDEFAULT_FRAME_STYLE, "frmXMGR"),
      parts_(std::move(parts)) {
  SetIcons(wxIconBundle(Icon("lorelin", 64).GetIcon(FromDIP(wxSize(64, 64)))));
  auto* const panel = new wxPanel(this);
  panel->SetSizer(new wxBoxSizer(wxVERTICAL));
  BuildList();
  BuildButtons();
  SetSize(FromDIP(wxSize(720, 380)));
  SetMinSize(FromDIP(wxSize(480, 260)));
  Fill();
  list_->SetFocus();
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_ESCAPE) {
      Close();
    } else {
      event.Skip();
    }
  });
}

void FrmXMGR::BuildList() {
  wxWindow* const panel = GetChildren().front();
  list_ = new wxDataViewListCtrl(panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxDV_ROW_LINES);
  list_->SetName("lstExtensions");
  SetAccessibleName(*list_, "Erweiterungen");
  list_->AppendToggleColumn("Aktiv", wxDATAVIEW_CELL_ACTIVATABLE, FromDIP(60));
  list_->AppendTextColumn("Name", wxDATAVIEW_CELL_INERT, FromDIP(160));
  list_->AppendTextColumn("Objektname", wxDATAVIEW_CELL_INERT, FromDIP(220));
  list_->AppendTextColumn("Zustand", wxDATAVIEW_CELL_INERT, FromDIP(240));
  list_->Bind(wxEVT_DATAVIEW_ITEM_VALUE_CHANGED, &FrmXMGR::Toggled, this);
  list_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) { SelectionChanged(); });
  panel->GetSizer()->Add(list_, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(12)));
  hint_ = new wxStaticText(panel, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize, 0, "lblHint");
  panel->GetSizer()->Add(hint_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(12)));
}

void FrmXMGR::BuildButtons() {
  wxWindow* const panel = GetChildren().front();
  auto* const line = new wxBoxSizer(wxHORIZONTAL);
  const auto button = [&](const char* caption, auto action) {
    auto* const made = new wxButton(panel, wxID_ANY, ToWx(caption));
    made->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
    line->Add(made, wxSizerFlags().Border(wxRIGHT, FromDIP(8)));
    return made;
  };
  button("&Hinzufügen …", [this] { Add(); });
  remove_ = button("&Entfernen", [this] { Remove(); });
  button("&Prüfen", [this] { CheckSelectedOrAll(); });
  line->AddStretchSpacer();
  button("&Schließen", [this] { Close(); });
  panel->GetSizer()->Add(line, wxSizerFlags().Expand().Border(wxALL, FromDIP(12)));
}

// What came with the program can be switched on without being looked for.
std::vector<FrmXMGR::Listed> FrmXMGR::ListAll() {
  std::vector<Listed> all;
  for (Registration& one : parts_.registrations.List()) all.push_back({std::move(one), true});
  for (const Shipped& one : parts_.shipped) {
    const bool there =
        std::any_of(all.begin(), all.end(), [&](const Listed& l) { return l.objectName == one.objectName; });
    if (!there) all.push_back({{.name = one.name, .objectName = one.objectName, .active = {}}, false});
  }
  return all;
}

void FrmXMGR::Fill() {
  const auto selected = Selected();
  shown_ = ListAll();
  list_->DeleteAllItems();
  for (const Listed& one : shown_) {
    wxVector<wxVariant> row;
    row.push_back(wxVariant(one.IsCalled()));
    row.push_back(wxVariant(ToWx(one.name)));
    row.push_back(wxVariant(ToWx(one.objectName)));
    row.push_back(wxVariant(ToWx(StateOf(one))));
    list_->AppendItem(row);
    if (selected && selected->name == one.name) {
      list_->SelectRow(static_cast<unsigned>(list_->GetItemCount() - 1));
    }
  }
  SelectionChanged();
}

std::string FrmXMGR::StateOf(const Listed& extension) const {
  if (!extension.registered) return "mitgeliefert, ausgeschaltet";
  const auto tried = tried_.find(extension.objectName);
  if (!extension.IsCalled())
    return tried == tried_.end() ? "ausgeschaltet" : "ausgeschaltet; " + tried->second;
  const std::string state = tried == tried_.end() ? "noch nicht geprüft" : tried->second;
  if (lorelin::IsActive(extension.active)) return state;
  if (!IsActiveForExport(extension.active)) return "nur als Filter; " + state;
  if (!IsActiveForFilter(extension.active)) return "nur beim Export; " + state;
  return "nur als Filter und beim Export; " + state;
}

void FrmXMGR::SelectionChanged() {
  const int row = list_->GetSelectedRow();
  const auto selected = Selected();
  remove_->Enable(selected && selected->registered);
  // A long state does not fit into its column.
  wxString hint = shown_.empty() ? ToWx("Es sind keine Erweiterungen eingetragen.") : wxString();
  if (selected) {
    const auto line = static_cast<unsigned>(row);
    hint = list_->GetTextValue(line, kName) + ": " + list_->GetTextValue(line, kState);
  }
  hint_->SetLabel(hint);
  hint_->GetParent()->Layout();
}

std::optional<FrmXMGR::Listed> FrmXMGR::Selected() const {
  const int row = list_->GetSelectedRow();
  if (row < 0 || static_cast<std::size_t>(row) >= shown_.size()) return std::nullopt;
  return shown_[static_cast<std::size_t>(row)];
}

std::string FrmXMGR::Try(const std::string& objectName) {
  try {
    (void)parts_.automation.CreateObject(objectName);
    return "bereit";
  } catch (const RuntimeError& error) {
    return "lässt sich nicht erstellen: " + std::string(error.what());
  }
}

void FrmXMGR::CheckRow(std::size_t row) {
  const Listed& extension = shown_[row];
  tried_[extension.objectName] = Try(extension.objectName);
  list_->SetTextValue(ToWx(StateOf(extension)), static_cast<unsigned>(row), kState);
}

void FrmXMGR::Check() {
  for (std::size_t row = 0; row < shown_.size(); ++row) {
    if (shown_[row].IsCalled()) CheckRow(row);
  }
  SelectionChanged();
}

void FrmXMGR::CheckSelectedOrAll() {
  const auto selected = Selected();
  if (!selected) return Check();
  if (selected->registered) CheckRow(static_cast<std::size_t>(list_->GetSelectedRow()));
  SelectionChanged();
}

void FrmXMGR::Toggled(wxDataViewEvent& event) {
  if (event.GetColumn() != static_cast<int>(kActive)) return;
  const int row = list_->ItemToRow(event.GetItem());
  if (row < 0 || static_cast<std::size_t>(row) >= shown_.size()) return;
  const bool active = list_->GetToggleValue(static_cast<unsigned>(row), kActive);
  SwitchTo(shown_[static_cast<std::size_t>(row)], active);
  // Not while the list is still busy with the very row.
  CallAfter([this] { Fill(); });
}

void FrmXMGR::SwitchTo(const Listed& extension, bool active) {
  if (!extension.registered) {
    if (active) (void)AddAs(extension.name, extension.objectName);
  } else if (!parts_.registrations.SetActive(extension.name, active)) {
    parts_.messageBoxes.Show("Die Einstellungen ließen sich nicht schreiben.", "Fehler",
                             MessageIcon::Exclamation, MessageButtons::Ok);
  }
}

void FrmXMGR::Add() {
  AddDialog dialog(this, parts_.shipped);
  // What was typed stays when it is refused.
  while (dialog.ShowModal() == wxID_OK && !AddAs(dialog.NewName(), dialog.ObjectName())) {
  }
  Fill();
}

bool FrmXMGR::AddAs(const std::string& name, const std::string& objectName) {
  const std::string refusal = parts_.registrations.Add(name, objectName);
  if (!refusal.empty()) {
    parts_.messageBoxes.Show(refusal, "Erweiterung hinzufügen", MessageIcon::Exclamation, MessageButtons::Ok);
    return false;
  }
  const auto found = std::find_if(parts_.shipped.begin(), parts_.shipped.end(),
                                  [&](const Shipped& s) { return s.objectName == objectName; });
  if (found != parts_.shipped.end()) found->install();
  return true;
}

void FrmXMGR::Remove() {
  const auto selected = Selected();
  if (!selected || !selected->registered) return;
  if (parts_.messageBoxes.Show("Möchten Sie die Erweiterung „" + selected->name + "“ entfernen?", "Frage",
                               MessageIcon::Question, MessageButtons::YesNo) != MessageAnswer::Yes) {
    return;
  }
  parts_.registrations.Remove(selected->name);
  Fill();
}

}  // namespace lorelin
