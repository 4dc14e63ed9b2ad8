#include "desktop/frmSoundExport.h"

#include <wx/button.h>
#include <wx/dirdlg.h>
#include <wx/stattext.h>

#include <algorithm>
#include <array>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/labelledControl.h"
#include "desktop/toolkit/text.h"
#include "export/soundFormats.h"

namespace lorelin {
namespace {

// The format of the document's own sound file has its own menu entry, and needs no encoding. Behind them
// stands the book.
constexpr std::array kFormats{SoundFormat::Mp3, SoundFormat::Opus, SoundFormat::Vorbis, SoundFormat::Flac,
                              SoundFormat::Wav};
constexpr int kBook = static_cast<int>(kFormats.size());

wxArrayString FormatEntries() {
  wxArrayString entries;
  for (const SoundFormat format : kFormats) entries.Add(ToWx(NameOf(format).caption));
  entries.Add(ToWx(kBookCaption));
  return entries;
}

wxArrayString SubtitleEntries() {
  wxArrayString entries;
  for (const char* const name :
       {"keine", "SRT, für Videoprogramme", "LRC, für Musikprogramme", "WebVTT, für Webseiten"})
    entries.Add(ToWx(name));
  return entries;
}

}  // namespace

FrmSoundExport::FrmSoundExport(wxWindow* parent, const ExportOffer& offer, const ExportOrder& order)
    : wxDialog(parent, wxID_ANY, "Als Tondatei exportieren", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmSoundExport"),
      offer_(offer),
      first_(order) {
  Build();
  Fill(order);
  SetEscapeId(wxID_CANCEL);
  CentreOnParent();
  cboFormat_->SetFocus();
}

void FrmSoundExport::Build() {
  const int gap = FromDIP(12);
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(
      new wxStaticText(this, wxID_ANY, ToWx("Vorgelesen dauert der Text " + LengthText(offer_.length) + ".")),
      wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  auto* const grid = new wxFlexGridSizer(2, FromDIP(8), FromDIP(8));
  grid->AddGrowableCol(1);
  cboFormat_ = AddChoice(*grid, "&Format:", "cboFormat", FormatEntries());
  cboFormat_->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) {
    ShowSizes();
    ShowWhatApplies();
  });
  cboQuality_ = AddChoice(*grid, "&Qualität:", "cboQuality", {});
  cboSubtitles_ = AddChoice(*grid, "&Untertitel:", "cboSubtitles", SubtitleEntries());
  txtTitle_ = AddText(*grid, "&Titel:", "txtTitle");
  txtAuthor_ = AddText(*grid, "A&utor:", "txtAuthor");
  BuildFolder(*grid);
  sizer->Add(grid, wxSizerFlags(1).Expand().Border(wxALL, gap));
  const std::string chapters = offer_.files > 1 ? " (" + std::to_string(offer_.files) + " Dateien)" : "";
  chkChapters_ = new wxCheckBox(this, wxID_ANY, ToWx("Eine Datei für jedes &Kapitel" + chapters),
                                wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, "chkChapters");
  chkChapters_->Enable(offer_.files > 1);
  sizer->Add(chkChapters_, wxSizerFlags().Border(wxLEFT | wxRIGHT, gap));
  BuildButtons(*sizer);
  SetSizerAndFit(sizer);
}

void FrmSoundExport::BuildFolder(wxSizer& grid) {
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  auto* const label = new wxStaticText(this, wxID_ANY, "&Ordner:");
  txtFolder_ = new wxTextCtrl(this, wxID_ANY, wxEmptyString, wxDefaultPosition, FromDIP(wxSize(260, -1)), 0,
                              wxDefaultValidator, "txtFolder");
  SetAccessibleName(*txtFolder_, "Ordner");
  auto* const browse = new wxButton(this, wxID_ANY, ToWx("&Durchsuchen …"));
  browse->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ChooseFolder(); });
  row->Add(txtFolder_, wxSizerFlags(1).CenterVertical().Border(wxRIGHT, FromDIP(8)));
  row->Add(browse);
  grid.Add(label, wxSizerFlags().CenterVertical());
  grid.Add(row, wxSizerFlags().Expand());
}

void FrmSoundExport::BuildButtons(wxSizer& sizer) {
  const int gap = FromDIP(12);
  auto* const ok = new wxButton(this, wxID_OK, "&Exportieren");
  ok->SetDefault();
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->AddStretchSpacer();
  row->Add(new wxButton(this, wxID_CANCEL, "&Abbrechen"), wxSizerFlags().Border(wxRIGHT, gap / 2));
  row->Add(ok);
  sizer.Add(row, wxSizerFlags().Expand().Border(wxALL, gap));
}

wxTextCtrl* FrmSoundExport::AddText(wxSizer& grid, const char* caption, const char* name) {
  auto* const text = new wxTextCtrl(this, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize, 0,
                                    wxDefaultValidator, name);
  AddLabelled(*text, grid, caption);
  return text;
}

wxChoice* FrmSoundExport::AddChoice(wxSizer& grid, const char* caption, const char* name,
                                    const wxArrayString& entries) {
  auto* const choice =
      new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, entries, 0, wxDefaultValidator, name);
  AddLabelled(*choice, grid, caption);
  return choice;
}

void FrmSoundExport::Fill(const ExportOrder& order) {
  const auto* const format = std::find(kFormats.begin(), kFormats.end(), order.choices.format);
  cboFormat_->SetSelection(order.choices.book ? kBook : static_cast<int>(format - kFormats.begin()));
  ShowSizes();
  cboQuality_->SetSelection(static_cast<int>(order.choices.quality));
  const auto& subtitles = order.choices.subtitles;
  cboSubtitles_->SetSelection(subtitles ? 1 + static_cast<int>(*subtitles) : 0);
  chkChapters_->SetValue(offer_.files > 1 && order.choices.fileForEachChapter);
  ShowWhatApplies();
  txtTitle_->ChangeValue(ToWx(offer_.title));
  txtAuthor_->ChangeValue(ToWx(offer_.author));
  txtFolder_->ChangeValue(ToWx(order.folder));
}

// The quality that was chosen stays chosen.
void FrmSoundExport::ShowSizes() {
  const int before = std::max(cboQuality_->GetSelection(), 0);
  const SoundFormat format = Format();
  wxArrayString entries;
  for (int quality = 0; quality < kSoundQualities; ++quality)
    entries.Add(ToWx(QualityText(format, static_cast<SoundQuality>(quality), offer_.length)));
  cboQuality_->Set(entries);
  cboQuality_->SetSelection(before);
  cboQuality_->Enable(NameOf(format).hasQualities);
}

// A book is one file, and its text is in it.
void FrmSoundExport::ShowWhatApplies() {
  cboSubtitles_->Enable(!WantsBook());
  chkChapters_->Enable(!WantsBook() && offer_.files > 1);
}

bool FrmSoundExport::WantsBook() const {
  return cboFormat_->GetSelection() == kBook;
}

// Of the sound, which in a book is MP3.
SoundFormat FrmSoundExport::Format() const {
  const int format = cboFormat_->GetSelection();
  return format >= 0 && format < kBook ? kFormats.at(static_cast<std::size_t>(format)) : SoundFormat::Mp3;
}

void FrmSoundExport::ChooseFolder() {
  wxDirDialog dialog(this, "Ordner für die Tondateien", txtFolder_->GetValue());
  if (dialog.ShowModal() == wxID_OK) txtFolder_->ChangeValue(dialog.GetPath());
}

ExportOrder FrmSoundExport::Order() const {
  ExportOrder order;
  order.choices.format = Format();
  order.choices.book = WantsBook();
  order.choices.quality = static_cast<SoundQuality>(std::max(cboQuality_->GetSelection(), 0));
  // What does not apply this time stays as it was wanted before.
  order.choices.fileForEachChapter =
      chkChapters_->IsEnabled() ? chkChapters_->GetValue() : first_.choices.fileForEachChapter;
  if (const int subtitles = cboSubtitles_->GetSelection(); subtitles > 0)
    order.choices.subtitles = static_cast<SubtitleFormat>(subtitles - 1);
  order.title = FromWx(txtTitle_->GetValue());
  order.author = FromWx(txtAuthor_->GetValue());
  order.folder = FromWx(txtFolder_->GetValue());
  return order;
}

}  // namespace lorelin
