#include "desktop/frmMoreVoices.h"

#include <wx/sizer.h>

#include "base/sizeText.h"
#include "desktop/frmLicence.h"
#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/fontScale.h"
#include "desktop/toolkit/text.h"
#include "desktop/toolkit/textField.h"
#include "voices/voiceTexts.h"

namespace lorelin {
namespace {

constexpr const char* kTitle = "Weitere Stimmen";
constexpr std::chrono::milliseconds kInterval{200};
constexpr int kSpokenStep = 25;  // per cent

wxVector<wxVariant> RowOf(const VoiceLibrary::Entry& entry) {
  wxVector<wxVariant> row;
  for (const std::string& text :
       {entry.language, entry.speaker, entry.quality, entry.size, entry.speed,
        entry.licence.empty() ? std::string("wird gezeigt") : entry.licence, entry.StateText()}) {
    row.push_back(wxVariant(ToWx(text)));
  }
  return row;
}

}  // namespace

FrmMoreVoices::FrmMoreVoices(wxWindow* parent, Parts parts)
    : wxDialog(parent, wxID_ANY, kTitle, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmMoreVoices"),
      parts_(parts),
      pace_(parts.voiceLibrary.UsedClock()) {
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  BuildList(*sizer);
  BuildProgress(*sizer);
  BuildButtons(*sizer);
  SetSizer(sizer);
  SetMinSize(FromDIP(wxSize(560, 380)));
  SetSize(ScaledByFont(*this, wxSize(860, 520)));
  CentreOnParent();
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { CancelOrClose(); });
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_ESCAPE) {
      CancelOrClose();
    } else {
      event.Skip();
    }
  });
  Fill("");
  SetBusy(false);
  list_->SetFocus();
}

void FrmMoreVoices::BuildList(wxSizer& sizer) {
  const int gap = FromDIP(12);
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(new wxStaticText(this, wxID_ANY, "S&uchen:"), wxSizerFlags().CenterVertical());
  filter_ = MakeTextField(this, "txtFilter");
  SetAccessibleName(*filter_, "Suchen");
  filter_->SetHint("Sprache oder Sprecher");
  filter_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { Fill(""); });
  row->Add(filter_, wxSizerFlags(1).Border(wxLEFT, gap / 2));
  sizer.Add(row, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  list_ =
      new wxDataViewListCtrl(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(240, 120)), wxDV_ROW_LINES);
  list_->SetName("lstVoices");
  SetAccessibleName(*list_, "Stimmen zum Herunterladen");
  const auto column = [&](const char* title, int width) {
    list_->AppendTextColumn(ToWx(title), wxDATAVIEW_CELL_INERT, ScaledByFont(*this, wxSize(width, -1)).x,
                            wxALIGN_LEFT, wxDATAVIEW_COL_RESIZABLE);
  };
  column("Sprache", 150);
  column("Sprecher", 150);
  column("Güte", 80);
  column("Größe", 70);
  column("Tempo hier", 100);
  column("Lizenz", 100);
  column("Zustand", 140);
  list_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) { SelectionChanged(); });
  list_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) {
    if (download_->IsEnabled()) CallAfter([this] { Download(); });
  });
  sizer.Add(list_, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
}

void FrmMoreVoices::BuildProgress(wxSizer& sizer) {
  const int gap = FromDIP(12);
  hint_ = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblHint");
  sizer.Add(hint_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  gauge_ = new wxGauge(this, wxID_ANY, 100);
  gauge_->SetName("barProgress");
  SetAccessibleName(*gauge_, "Fortschritt");
  sizer.Add(gauge_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  status_ =
      new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE, "lblStatus");
  sizer.Add(status_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
}

void FrmMoreVoices::BuildButtons(wxSizer& sizer) {
  auto* const line = new wxBoxSizer(wxHORIZONTAL);
  const auto button = [&](const char* caption, auto action) {
    auto* const made = new wxButton(this, wxID_ANY, ToWx(caption));
    made->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
    line->Add(made, wxSizerFlags().Border(wxRIGHT, FromDIP(8)));
    return made;
  };
  download_ = button("&Herunterladen", [this] { Download(); });
  cancel_ = button("&Abbrechen", [this] { cancelled_ = true; });
  remove_ = button("&Entfernen", [this] { Remove(); });
  line->AddStretchSpacer();
  button("S&chließen", [this] { CancelOrClose(); });
  sizer.Add(line, wxSizerFlags().Expand().Border(wxALL, FromDIP(12)));
}

void FrmMoreVoices::Fill(const std::string& select) {
  shown_ = parts_.voiceLibrary.Entries(FromWx(filter_->GetValue()));
  list_->DeleteAllItems();
  int chosen = shown_.empty() ? wxNOT_FOUND : 0;
  for (std::size_t row = 0; row < shown_.size(); ++row) {
    list_->AppendItem(RowOf(shown_[row]));
    if (shown_[row].name == select) chosen = static_cast<int>(row);
  }
  if (chosen != wxNOT_FOUND) list_->SelectRow(static_cast<unsigned>(chosen));
  SelectionChanged();
}

const VoiceLibrary::Entry* FrmMoreVoices::Selected() const {
  const int row = list_->GetSelectedRow();
  if (row < 0 || static_cast<std::size_t>(row) >= shown_.size()) return nullptr;
  return &shown_[static_cast<std::size_t>(row)];
}

void FrmMoreVoices::SelectionChanged() {
  const VoiceLibrary::Entry* const selected = Selected();
  const NaturalVoices& natural = parts_.voiceLibrary.Natural();
  download_->Enable(!busy_ && selected != nullptr && selected->CanInstall() && natural.Supported());
  remove_->Enable(!busy_ && selected != nullptr && selected->CanRemove());
  std::string hint = natural.Obstacle();
  if (hint.empty() && selected != nullptr && selected->offered != nullptr)
    hint = QualityAdvice(selected->offered->quality);
  if (shown_.empty()) hint = "Keine Stimme passt dazu.";
  for (const std::string& problem : parts_.voiceLibrary.Problems())
    hint += (hint.empty() ? "" : "\n") + problem;
  hint_->SetLabel(ToWx(hint));
  hint_->Wrap(GetClientSize().x - FromDIP(24));
  Layout();
}

void FrmMoreVoices::SetBusy(bool busy) {
  busy_ = busy;
  list_->Enable(!busy);
  filter_->Enable(!busy);
  cancel_->Enable(busy);
  if (busy) cancel_->SetFocus();
  SelectionChanged();
}

void FrmMoreVoices::Tell(const std::string& text) {
  status_->SetLabel(ToWx(text));
  Announce(*status_);
}

bool FrmMoreVoices::Turn(std::uintmax_t there, std::uintmax_t all) {
  pace_.Turn(there, all);
  const auto now = std::chrono::steady_clock::now();
  if (now >= next_) {
    next_ = now + kInterval;
    gauge_->SetValue(pace_.Percent());
    status_->SetLabel(ToWx(pace_.Text()));
    if (pace_.Percent() >= toldPercent_ + kSpokenStep) {
      toldPercent_ = pace_.Percent();
      Announce(*status_);
    }
  }
  parts_.pump.RunPendingEvents();
  return !cancelled_;
}

bool FrmMoreVoices::Agrees(const CatalogueVoice& voice, const std::string& card) {
  FrmLicence licence(this, VoiceText(voice), SizeText(voice.Bytes()), card);
  return licence.ShowModal() == wxID_OK;
}

VoiceOutcome FrmMoreVoices::Fetch(const CatalogueVoice& voice) {
  VoiceInstaller installer = parts_.voiceLibrary.Installer();
  std::string card;
  Tell("Die Lizenz wird geholt …");
  VoiceOutcome outcome = installer.FetchCard(voice, card, [this](auto, auto) {
    parts_.pump.RunPendingEvents();
    return !cancelled_;
  });
  if (!outcome.Done()) return outcome;
  if (!Agrees(voice, card)) return {VoiceOutcome::Kind::Cancelled, ""};
  Tell("Die Stimme wird heruntergeladen.");
  return installer.Install(voice, card, [this](auto there, auto all) { return Turn(there, all); });
}

void FrmMoreVoices::Download() {
  const VoiceLibrary::Entry* const selected = Selected();
  if (busy_ || selected == nullptr || !selected->CanInstall()) return;
  const CatalogueVoice voice = *selected->offered;
  cancelled_ = false;
  toldPercent_ = 0;
  pace_.Begin();
  SetBusy(true);
  const VoiceOutcome outcome = Fetch(voice);
  gauge_->SetValue(outcome.Done() ? 100 : 0);
  changed_ = changed_ || outcome.Done();
  SetBusy(false);
  Fill(voice.name);
  list_->SetFocus();
  if (outcome.Done()) {
    Tell("Die Stimme „" + VoiceText(voice) + "“ ist installiert.");
  } else {
    Tell(outcome.text.empty() ? "Abgebrochen. Was schon da ist, bleibt für den nächsten Versuch."
                              : outcome.text);
  }
  if (closes_) EndModal(wxID_CLOSE);
}

void FrmMoreVoices::Remove() {
  const VoiceLibrary::Entry* const selected = Selected();
  if (busy_ || selected == nullptr || !selected->CanRemove()) return;
  const std::string name = selected->name;
  const std::string question =
      "Möchten Sie die Stimme „" + selected->language + " – " + selected->speaker + "“ entfernen?";
  if (parts_.messageBoxes.Show(question, "Frage", MessageIcon::Question, MessageButtons::YesNo) !=
      MessageAnswer::Yes) {
    return;
  }
  const VoiceOutcome outcome = parts_.voiceLibrary.Installer().Remove(name);
  changed_ = true;
  gauge_->SetValue(0);
  Fill(name);
  list_->SetFocus();
  Tell(outcome.Done() ? "Die Stimme ist entfernt." : outcome.text);
}

// What is under way ends first.
void FrmMoreVoices::CancelOrClose() {
  if (!busy_) return EndModal(wxID_CLOSE);
  cancelled_ = true;
  closes_ = true;
}

}  // namespace lorelin
