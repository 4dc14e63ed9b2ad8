#include "desktop/frmSettings.h"

#include <wx/dcclient.h>
#include <wx/image.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include <algorithm>
#include <utility>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/pageTabs.h"
#include "desktop/toolkit/pictureButton.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

constexpr std::array kPageNames{"Diverses", "Taskscripts", "Erweiterungen", "Arbeitsfläche"};
const wxColour kLabelColour(255, 255, 255);
const wxColour kHoverColour(255, 255, 0);
constexpr int kTextWidth = 60;  // characters

}  // namespace

FrmSettings::FrmSettings(wxWindow* parent, Parts parts)
    : wxDialog(parent, wxID_ANY, "Einstellungen", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmSettings"),
      parts_(std::move(parts)) {
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  auto* const columns = new wxBoxSizer(wxHORIZONTAL);
  BuildLabels(*columns);
  BuildPages(*columns);
  sizer->Add(columns, wxSizerFlags(1).Expand());
  const int gap = FromDIP(12);
  auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->AddStretchSpacer();
  auto* const apply = new wxButton(this, wxID_APPLY, ToWx("&Übernehmen"));
  apply->SetName("Command1");
  apply->SetDefault();
  apply->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Apply(); });
  buttons->Add(apply);
  buttons->Add(new wxButton(this, wxID_CANCEL, "Abbrechen"), wxSizerFlags().Border(wxLEFT, gap));
  sizer->Add(buttons, wxSizerFlags().Expand().Border(wxALL, gap));
  SetSizer(sizer);
  Fill(parts_.settings.GetSettings());
  sizer->SetSizeHints(this);  // as large as the largest page, before the others hide
  ShowPage(0);
  CentreOnParent();
  labels_.front()->SetFocus();
}

void FrmSettings::BuildLabels(wxSizer& sizer) {
  column_ = new wxPanel(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(180, -1)));
  column_->SetName("picBackground");
  if (wxImage image; image.LoadFile(ToWx(parts_.pictureFile))) picture_ = wxBitmap(image);
  column_->SetBackgroundColour(wxColour(28, 79, 143));  // for want of the picture
  column_->Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
    wxPaintDC paint(column_);
    const wxSize size = column_->GetClientSize();
    if (!picture_.IsOk() || size.x <= 0 || size.y <= 0) return;
    if (picture_.GetSize() != size) picture_ = wxBitmap(picture_.ConvertToImage().Rescale(size.x, size.y));
    paint.DrawBitmap(picture_, 0, 0);
  });
  column_->Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
    ColourLabels(nullptr);
    event.Skip();
  });
  auto* const list = new wxBoxSizer(wxVERTICAL);
  for (std::size_t i = 0; i < kPageNames.size(); ++i) {
    auto* const label = new wxButton(column_, wxID_ANY, ToWx(kPageNames[i]), wxDefaultPosition, wxDefaultSize,
                                     wxBORDER_NONE | wxBU_LEFT, wxDefaultValidator, "Label1");
    MakeReadableOnPicture(*label);
    label->Bind(wxEVT_BUTTON, [this, i](wxCommandEvent&) { ShowPage(i); });
    label->Bind(wxEVT_ENTER_WINDOW, [this, label](wxMouseEvent& event) {
      ColourLabels(label);
      event.Skip();
    });
    labels_.push_back(label);
    list->Add(label, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(10)));
  }
  ColourLabels(nullptr);
  // The label of the page that is shown is bold, and nothing moves when it is another one.
  int widest = 0;
  for (wxButton* const label : labels_) {
    label->SetFont(GetFont().Bold());
    widest = std::max(widest, label->GetBestSize().x);
  }
  column_->SetMinSize(wxSize(std::max(FromDIP(180), widest + FromDIP(60)), -1));
  column_->SetSizer(list);
  sizer.Add(column_, wxSizerFlags().Expand());
}

void FrmSettings::ColourLabels(const wxWindow* hovered) {
  for (wxButton* const label : labels_) {
    if (label == nullptr) continue;
    const wxColour& colour = label == hovered ? kHoverColour : kLabelColour;
    if (label->GetForegroundColour() != colour) label->SetForegroundColour(colour);
  }
}

void FrmSettings::BuildPages(wxSizer& sizer) {
  auto* const place = new wxBoxSizer(wxVERTICAL);
  constexpr std::array kFill{&FrmSettings::FillGeneralPage, &FrmSettings::FillScriptPage,
                             &FrmSettings::FillExtensionPage, &FrmSettings::FillDesktopPage};
  wxSize largest(0, 0);
  for (const auto fill : kFill) {
    auto* const page = new wxPanel(this);
    page->SetSizer(new wxBoxSizer(wxVERTICAL));
    (this->*fill)(*page);
    largest.IncTo(page->GetSizer()->GetMinSize());
    place->Add(page, wxSizerFlags(1).Expand());
    pages_.push_back(page);
  }
  for (wxPanel* const page : pages_) {
    page->SetMinSize(largest);
    page->Hide();
  }
  pages_.front()->Show();
  sizer.Add(place, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(12)));
}

wxSizer* FrmSettings::Group(wxPanel& page, const char* title) {
  auto* const group = new wxStaticBoxSizer(wxVERTICAL, &page, ToWx(title));
  page.GetSizer()->Add(group, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(12)));
  return group;
}

wxTextCtrl* FrmSettings::Field(wxPanel& page, wxSizer& group, const char* label, const char* name) {
  auto* const line = new wxBoxSizer(wxHORIZONTAL);
  auto* const caption = new wxStaticText(&page, wxID_ANY, ToWx(label));
  caption->SetMinSize(wxSize(std::max(FromDIP(60), GetTextExtent("Suffix:").x), -1));
  line->Add(caption, wxSizerFlags().CenterVertical());
  auto* const field = new wxTextCtrl(&page, wxID_ANY);
  field->SetName(name);
  SetAccessibleName(*field, label);
  line->Add(field, wxSizerFlags(1).Expand().Border(wxLEFT, FromDIP(8)));
  group.Add(line, wxSizerFlags().Expand().Border(wxALL, FromDIP(6)));
  return field;
}

wxCheckBox* FrmSettings::Check(wxPanel& page, wxSizer& group, const char* caption, const char* name) {
  auto* const box = new wxCheckBox(&page, wxID_ANY, ToWx(caption));
  box->SetName(name);
  group.Add(box, wxSizerFlags().Border(wxALL, FromDIP(6)));
  return box;
}

void FrmSettings::Text(wxPanel& page, wxSizer& group, const std::string& text, const char* name) {
  auto* const label = new wxStaticText(&page, wxID_ANY, ToWx(text));
  if (*name != '\0') label->SetName(name);
  label->Wrap(kTextWidth * GetCharWidth());
  group.Add(label, wxSizerFlags().Border(wxALL, FromDIP(6)));
}

void FrmSettings::FillGeneralPage(wxPanel& page) {
  wxSizer& reading = *Group(page, "Beim Vorlesen...");
  chkReadTitleOnAppChange_ =
      Check(page, reading, "...bei einem Programmwechsel aktuellen Programmtitel vorlesen",
            "chkReadTitleOnAppChange");
  if (const std::string obstacle = parts_.titlesObstacle(); !obstacle.empty()) Text(page, reading, obstacle);
  chkClipspeech_ = Check(page, reading, "... bei Änderung der Zwischenablage, den gesamten Inhalt vorlesen.",
                         "chkClipspeech");
  wxSizer& around = *Group(page, "Folgenden Prä/Suffix verwenden:");
  txtPrefix_ = Field(page, around, "Präfix:", "txtPrefix");
  txtSuffix_ = Field(page, around, "Suffix:", "txtSuffix");
  Text(page, around, "ggf. leer lassen");
  Text(page, around,
       "Der Präfix wird bei jedem klicke auf 'Sprechen' vor dem eingegebenen Text gesprochen. Ein Suffix "
       "wird danach "
       "gesprochen. Beide Einstellungen werden nicht durch Erweiterungen gefiltert.",
       "lblSufPrefHelp");
}

void FrmSettings::FillScriptPage(wxPanel& page) {
  wxSizer& group = *Group(page, "Taskscripts (Makros)");
  Text(page, group, "Legen Sie hier die Sicherheitseinstellungen für Taskscripts fest.");
  chkAllowVTS_ = Check(page, group, "...generell zulassen.", "chkAllowVTS");
  chkAllowRead_ =
      Check(page, group, "...dürfen lokale Dateien öffnen, anzeigen, ausführen und löschen.", "chkAllowRead");
  chkVTSAllowDownload_ =
      Check(page, group, "...dürfen Dateien aus dem Internet herunterladen.", "chkVTSAllowDownload");
}

void FrmSettings::FillExtensionPage(wxPanel& page) {
  wxSizer& group = *Group(page, "Erweiterungen / AddIns...");
  Text(page, group, "Aktivieren oder deaktivieren Sie hier die installierten Erweiterungen.");
  auto* const manager = new wxButton(
      &page, wxID_ANY, ToWx("Klicken Sie hier um die Konfiguration für die Erweiterungen aufzurufen."));
  manager->SetName("Label11");
  manager->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { parts_.manageExtensions(); });
  group.Add(manager, wxSizerFlags().Border(wxALL, FromDIP(6)));
  wxSizer& more = *Group(page, "Weitere Einstellungen...");
  chkRememberMailSend_ =
      Check(page, more, "... nach dem Exportvorgang standard E-Mail Programm öffnen", "chkRememberMailSend");
}

void FrmSettings::FillDesktopPage(wxPanel& page) {
  Text(page, *page.GetSizer(), "Passen Sie hier die Oberfläche von Lorelin ihren Bedürfnissen an.");
  wxSizer& group = *Group(page, "Beim Start....");
  // Where nothing is chosen, this one is, which nobody sees.
  optNone_ = new wxRadioButton(&page, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize, wxRB_GROUP,
                               wxDefaultValidator, "optNone");
  optNone_->Hide();
  constexpr std::array kOptions{"...den interaktiv Modus anzeigen.", "...den Textmodus anzeigen.",
                                "...zuletzt bearbeitetes Dokument öffnen."};
  for (std::size_t i = 0; i < kOptions.size(); ++i) {
    optBeimStart_[i] = new wxRadioButton(&page, wxID_ANY, ToWx(kOptions[i]), wxDefaultPosition, wxDefaultSize,
                                         0, wxDefaultValidator, "optBeimStart");
    group.Add(optBeimStart_[i], wxSizerFlags().Border(wxALL, FromDIP(6)));
  }
}

void FrmSettings::ShowPage(std::size_t index) {
  for (wxPanel* const page : pages_) page->Hide();
  pages_[index]->Show();
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    labels_[i]->SetFont(i == index ? GetFont().Bold() : GetFont());
    SetPageTab(*labels_[i], i == index);
  }
  Layout();
}

void FrmSettings::Fill(const SettingsValues& values) {
  txtPrefix_->SetValue(ToWx(values.prefix));
  txtSuffix_->SetValue(ToWx(values.suffix));
  chkAllowRead_->SetValue(values.allowRead);
  chkAllowVTS_->SetValue(values.allowVTS);
  chkVTSAllowDownload_->SetValue(values.allowDownload);
  chkRememberMailSend_->SetValue(values.launchMailProgram);
  chkReadTitleOnAppChange_->SetValue(values.readTitle);
  chkClipspeech_->SetValue(values.readClipboard);
  wxRadioButton* const option =
      values.start ? optBeimStart_[static_cast<std::size_t>(*values.start)] : optNone_;
  option->SetValue(true);
}

SettingsValues FrmSettings::Shown() const {
  SettingsValues values{.prefix = FromWx(txtPrefix_->GetValue()),
                        .suffix = FromWx(txtSuffix_->GetValue()),
                        .allowRead = chkAllowRead_->GetValue(),
                        .allowVTS = chkAllowVTS_->GetValue(),
                        .allowDownload = chkVTSAllowDownload_->GetValue(),
                        .launchMailProgram = chkRememberMailSend_->GetValue(),
                        .readTitle = chkReadTitleOnAppChange_->GetValue(),
                        .readClipboard = chkClipspeech_->GetValue(),
                        .start = std::nullopt};
  for (std::size_t i = 0; i < optBeimStart_.size(); ++i) {
    if (optBeimStart_[i]->GetValue()) values.start = static_cast<StartOption>(i);
  }
  return values;
}

void FrmSettings::Apply() {
  const SettingsValues values = Shown();
  if (parts_.settings.WantsRestart(values)) {
    parts_.messageBoxes.Show(
        "Sie haben eine Einstellung geändert, die einen Neustart von Lorelin erfordert.\n\nDie Einstellungen "
        "werden "
        "erst nach dem Neustart effekt haben, Sie können Lorelin während der aktuellen Sitzung jedoch "
        "weiterhin "
        "vollständig benutzen.",
        "Hinweis", MessageIcon::Information, MessageButtons::Ok);
  }
  if (!parts_.settings.ApplySettings(values)) {
    parts_.messageBoxes.Show(
        "Die Einstellungen ließen sich nicht speichern; keine wurde geändert. Ist auf dem Datenträger noch "
        "Platz?",
        "Fehler", MessageIcon::Critical, MessageButtons::Ok);
    return;
  }
  if (!parts_.settings.IsLasting()) {
    parts_.messageBoxes.Show(
        "Die Einstellungen wurden nicht gespeichert, weil in ihre Datei nicht geschrieben werden kann. Sie "
        "gelten nur bis zum Programmende.",
        "Fehler", MessageIcon::Critical, MessageButtons::Ok);
  }
  parts_.applied();
  if (IsModal()) {
    EndModal(wxID_APPLY);
  } else {
    Hide();
  }
}

}  // namespace lorelin
