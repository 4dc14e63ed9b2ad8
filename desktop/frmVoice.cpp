#include "desktop/frmVoice.h"

#include <wx/sizer.h>

#include <algorithm>
#include <utility>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/dialogButtons.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

// The toolkit's tree has a picture before every text, which assistive technology finds without a name even
// where there is none.
class TextTree final : public wxDataViewTreeStore {
 public:
  [[nodiscard]] wxString GetColumnType(unsigned int) const override { return "string"; }
  void GetValue(wxVariant& value, const wxDataViewItem& item, unsigned int) const override {
    value = GetItemText(item);
  }
};

void ShowTextsOnly(wxDataViewTreeCtrl& tree) {
  tree.ClearColumns();
  const wxObjectDataPtr<TextTree> texts(new TextTree);
  tree.AssociateModel(texts.get());
  tree.AppendColumn(new wxDataViewColumn(wxEmptyString, new wxDataViewTextRenderer, 0, wxCOL_WIDTH_AUTOSIZE));
}

}  // namespace

FrmVoice::FrmVoice(wxWindow* parent, VoiceChoice voices, Actions actions)
    : wxDialog(parent, wxID_ANY, ToWx("Stimme wählen"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmVoice"),
      voices_(voices),
      actions_(std::move(actions)) {
  BuildControls();
  Fill();
  const std::int32_t stored = voices_.StoredPosition();
  if (stored >= 0 && static_cast<unsigned>(stored) < cmbVoice_->GetCount()) cmbVoice_->SetSelection(stored);
  SelectionChanged();
  ShowProposal();
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
  if (actions_.natural) BuildGroups(*sizer);
  lblLNG_ = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblLNG");
  sizer->Add(lblLNG_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  lblGender_ = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblGender");
  sizer->AddSpacer(gap / 2);
  sizer->Add(lblGender_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, gap));
  BuildProposal(*sizer);
  BuildButtons(*sizer);
  SetSizer(sizer);
}

// The same voices once more, as a person looks for them; the drop-down list has them by their numbers.
void FrmVoice::BuildGroups(wxSizer& sizer) {
  const int gap = FromDIP(12);
  sizer.Add(new wxStaticText(this, wxID_ANY, "&Nach Klang und Sprache:"),
            wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  groups_ = new wxDataViewTreeCtrl(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(400, 240)),
                                   wxDV_NO_HEADER | wxDV_SINGLE);
  ShowTextsOnly(*groups_);
  groups_->SetName("lstGroups");
  SetAccessibleName(*groups_, "Stimmen nach Klang und Sprache");
  groups_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) { GroupSelectionChanged(); });
  groups_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent& event) {
    if (groups_->IsContainer(event.GetItem())) {
      event.Skip();
    } else {
      CallAfter([this] { Accept(); });
    }
  });
  groups_->Bind(wxEVT_DATAVIEW_ITEM_START_EDITING, [](wxDataViewEvent& event) { event.Veto(); });
  sizer.Add(groups_, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
}

void FrmVoice::BuildProposal(wxSizer& sizer) {
  const int gap = FromDIP(12);
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  lblProposal_ = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblProposal");
  row->Add(lblProposal_, wxSizerFlags(1).CenterVertical());
  proposal_ = new wxButton(this, wxID_ANY, ToWx("&Vorschlag wählen"));
  proposal_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Select(proposed_); });
  row->Add(proposal_, wxSizerFlags().CenterVertical().Border(wxLEFT, gap));
  sizer.Add(row, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
}

void FrmVoice::BuildButtons(wxSizer& sizer) {
  const int gap = FromDIP(12);
  if (actions_.more) {
    auto* const more = new wxButton(this, wxID_ANY, ToWx("&Weitere Stimmen …"));
    more->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { GetMore(); });
    sizer.Add(more, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  }
  const DialogButtons buttons = AddDialogButtons(*this, sizer);
  sampleButton_ = buttons.sample;
  buttons.ok->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Accept(); });
  buttons.sample->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { actions_.sample(cmbVoice_->GetSelection()); });
}

void FrmVoice::Fill() {
  items_.clear();
  cmbVoice_->Clear();
  for (const std::string& name : voices_.Names()) cmbVoice_->Append(ToWx(name));
  if (groups_ != nullptr) FillGroups();
}

void FrmVoice::FillGroups() {
  groups_->DeleteAllItems();
  items_.assign(cmbVoice_->GetCount(), {});
  for (const VoiceGroup& group : voices_.Groups(actions_.natural())) {
    const wxDataViewItem parent = groups_->AppendContainer(wxDataViewItem(nullptr), ToWx(group.title));
    for (const std::int32_t position : group.positions) {
      const auto index = static_cast<std::size_t>(position);
      items_[index] = groups_->AppendItem(parent, cmbVoice_->GetString(static_cast<unsigned>(position)));
    }
  }
}

// Said, never done: the voice stays the one that the user chose.
void FrmVoice::ShowProposal() {
  proposed_ = -1;
  if (actions_.natural) proposed_ = voices_.Proposed(actions_.natural(), cmbVoice_->GetSelection());
  const bool proposes = proposed_ >= 0;
  if (proposes) {
    const std::string name = FromWx(cmbVoice_->GetString(static_cast<unsigned>(proposed_)));
    lblProposal_->SetLabel(ToWx("Vorschlag: „" + name + "“ klingt natürlicher."));
  }
  lblProposal_->Show(proposes);
  proposal_->Show(proposes);
  GetSizer()->SetSizeHints(this);
  Layout();
}

void FrmVoice::Select(std::int32_t position) {
  cmbVoice_->SetSelection(position);
  SelectionChanged();
  groups_->SetFocus();
}

void FrmVoice::SelectInGroups() {
  const int position = cmbVoice_->GetSelection();
  if (groups_ == nullptr || position == wxNOT_FOUND) return;
  const wxDataViewItem item = items_[static_cast<std::size_t>(position)];
  if (!item.IsOk() || groups_->GetSelection() == item) return;
  groups_->Expand(groups_->GetModel()->GetParent(item));
  groups_->SetCurrentItem(item);
  groups_->EnsureVisible(item);
}

void FrmVoice::GroupSelectionChanged() {
  const wxDataViewItem item = groups_->GetSelection();
  const auto found = std::find(items_.begin(), items_.end(), item);
  if (!item.IsOk() || found == items_.end()) return;
  const auto position = static_cast<int>(found - items_.begin());
  if (cmbVoice_->GetSelection() == position) return;
  cmbVoice_->SetSelection(position);
  SelectionChanged();
}

void FrmVoice::SelectionChanged() {
  const std::int32_t position = cmbVoice_->GetSelection();
  const bool chosen = position != wxNOT_FOUND;
  lblLNG_->SetLabel(ToWx(chosen
                             ? voices_.LanguageLabel(position)
                             : "Die gespeicherte Stimme gibt es nicht mehr. Bitte wählen Sie eine andere."));
  lblGender_->SetLabel(chosen ? ToWx(voices_.GenderLabel(position)) : "");
  sampleButton_->Enable(chosen);
  SelectInGroups();
  Layout();
}

// What was selected stays selected, wherever it is in the list now.
void FrmVoice::GetMore() {
  const wxString selected = cmbVoice_->GetStringSelection();
  if (!actions_.more(this)) return;
  Fill();
  if (!cmbVoice_->SetStringSelection(selected)) {
    const std::int32_t stored = voices_.StoredPosition();
    if (stored >= 0 && static_cast<unsigned>(stored) < cmbVoice_->GetCount()) cmbVoice_->SetSelection(stored);
  }
  SelectionChanged();
  ShowProposal();
  cmbVoice_->SetFocus();
}

// Without a choice there is nothing to store.
void FrmVoice::Accept() {
  if (cmbVoice_->GetSelection() != wxNOT_FOUND) voices_.Save(cmbVoice_->GetSelection());
  EndModal(wxID_OK);
}

}  // namespace lorelin
