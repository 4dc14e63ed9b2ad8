#include "desktop/frmPronunciations.h"

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <utility>

#include "base/RuntimeError.h"
#include "desktop/frmPronunciation.h"
#include "desktop/frmTextRule.h"
#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

constexpr const char* kTitle = "Eigene Aussprachen";

wxVector<wxVariant> RowOf(const OwnWord& word) {
  wxVector<wxVariant> row;
  row.push_back(wxVariant(ToWx(word.written)));
  row.push_back(wxVariant(ToWx(word.spoken)));
  row.push_back(wxVariant(ToWx(word.wholeWord ? "ganzes Wort" : "Wortanfang")));
  row.push_back(wxVariant(ToWx(word.matchCase ? "beachtet" : "egal")));
  return row;
}

wxVector<wxVariant> RowOf(const ReadingRule& rule) {
  wxVector<wxVariant> row;
  row.push_back(wxVariant(rule.on));
  row.push_back(wxVariant(ToWx(rule.pattern)));
  row.push_back(wxVariant(ToWx(rule.replacement)));
  return row;
}

}  // namespace

FrmPronunciations::FrmPronunciations(wxWindow* parent, Pronunciations& pronunciations,
                                     MessageBoxes& messageBoxes,
                                     std::function<void(const std::string&)> sample)
    : wxDialog(parent, wxID_ANY, kTitle, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmPronunciations"),
      pronunciations_(pronunciations),
      messageBoxes_(messageBoxes),
      sample_(std::move(sample)) {
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  pages_ = new wxNotebook(this, wxID_ANY);
  SetAccessibleName(*pages_, kTitle);
  sizer->Add(pages_, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(12)));
  sizer->Add(CreateStdDialogButtonSizer(wxCLOSE),
             wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(12)));
  SetSizer(sizer);
  SetEscapeId(wxID_CLOSE);
  BuildWords();
  BuildRules();
  FillWords();
  FillRules();
  SetMinSize(FromDIP(wxSize(520, 320)));
  SetSize(FromDIP(wxSize(680, 440)));
  CentreOnParent();
  lstWords_->SetFocus();
}

wxWindow* FrmPronunciations::AddPage(const char* caption) {
  auto* const page = new wxPanel(pages_);
  page->SetSizer(new wxBoxSizer(wxVERTICAL));
  pages_->AddPage(page, ToWx(caption));
  return page;
}

wxDataViewListCtrl* FrmPronunciations::AddList(wxWindow& page, const char* name, const char* spokenName) {
  // Before the first layout it would be too small for its scroll bars.
  auto* const list =
      new wxDataViewListCtrl(&page, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(240, 120)), wxDV_ROW_LINES);
  list->SetName(name);
  SetAccessibleName(*list, spokenName);
  list->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) { ShowButtons(); });
  page.GetSizer()->Add(list, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(8)));
  return list;
}

wxButton* FrmPronunciations::AddButton(wxWindow& page, wxSizer& line, const char* caption,
                                       const std::function<void()>& action) {
  auto* const button = new wxButton(&page, wxID_ANY, ToWx(caption));
  button->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
  line.Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(8)));
  return button;
}

void FrmPronunciations::BuildWords() {
  wxWindow& page = *AddPage("Wörter");
  constexpr int kSortable = wxDATAVIEW_COL_SORTABLE | wxDATAVIEW_COL_RESIZABLE;
  lstWords_ = AddList(page, "lstWords", "Wörter mit eigener Aussprache");
  lstWords_->AppendTextColumn("Im Text", wxDATAVIEW_CELL_INERT, FromDIP(150), wxALIGN_LEFT, kSortable)
      ->SetSortOrder(true);
  lstWords_->AppendTextColumn("Gesprochen", wxDATAVIEW_CELL_INERT, FromDIP(220), wxALIGN_LEFT, kSortable);
  lstWords_->AppendTextColumn(ToWx("Gilt für"), wxDATAVIEW_CELL_INERT, FromDIP(110), wxALIGN_LEFT, kSortable);
  lstWords_->AppendTextColumn(ToWx("Groß und klein"), wxDATAVIEW_CELL_INERT, FromDIP(110), wxALIGN_LEFT,
                              kSortable);
  lstWords_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) {
    if (const auto index = Selected(*lstWords_)) EditWord(pronunciations_.Words()[*index]);
  });
  auto* const line = new wxBoxSizer(wxHORIZONTAL);
  AddButton(page, *line, "&Hinzufügen …", [this] { EditWord(std::nullopt); });
  words_.change = AddButton(page, *line, "Ä&ndern …", [this] {
    if (const auto index = Selected(*lstWords_)) EditWord(pronunciations_.Words()[*index]);
  });
  words_.remove = AddButton(page, *line, "&Entfernen", [this] { RemoveWord(); });
  words_.sample = AddButton(page, *line, "&Probe hören", [this] {
    if (const auto index = Selected(*lstWords_)) sample_(pronunciations_.Words()[*index].spoken);
  });
  page.GetSizer()->Add(line, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(8)));
  chkEmoji_ = new wxCheckBox(&page, wxID_ANY, ToWx("E&moji beim Namen nennen"), wxDefaultPosition,
                             wxDefaultSize, 0, wxDefaultValidator, "chkEmoji");
  chkEmoji_->SetValue(pronunciations_.SpeaksEmoji());
  chkEmoji_->Bind(wxEVT_CHECKBOX,
                  [this](const wxCommandEvent& event) { pronunciations_.SpeakEmoji(event.IsChecked()); });
  page.GetSizer()->Add(chkEmoji_, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(8)));
}

void FrmPronunciations::BuildRules() {
  wxWindow& page = *AddPage("Regeln");
  lstRules_ = AddList(page, "lstRules", "Leseregeln");
  lstRules_->AppendToggleColumn("An", wxDATAVIEW_CELL_ACTIVATABLE, FromDIP(60));
  lstRules_->AppendTextColumn("Ausdruck", wxDATAVIEW_CELL_INERT, FromDIP(260));
  lstRules_->AppendTextColumn("Ersetzung", wxDATAVIEW_CELL_INERT, FromDIP(220));
  lstRules_->Bind(wxEVT_DATAVIEW_ITEM_VALUE_CHANGED,
                  [this](const wxDataViewEvent& event) { RuleToggled(event); });
  auto* const line = new wxBoxSizer(wxHORIZONTAL);
  AddButton(page, *line, "&Hinzufügen …", [this] { EditRule(std::nullopt); });
  rules_.change = AddButton(page, *line, "Ä&ndern …", [this] {
    if (const auto index = Selected(*lstRules_)) EditRule(index);
  });
  rules_.remove = AddButton(page, *line, "&Entfernen", [this] { RemoveRule(); });
  page.GetSizer()->Add(line, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(8)));
}

void FrmPronunciations::FillWords() {
  lstWords_->DeleteAllItems();
  wxUIntPtr index = 0;
  for (const OwnWord& word : pronunciations_.Words()) lstWords_->AppendItem(RowOf(word), index++);
  ShowButtons();
}

void FrmPronunciations::FillRules() {
  lstRules_->DeleteAllItems();
  wxUIntPtr index = 0;
  for (const ReadingRule& rule : pronunciations_.Rules()) lstRules_->AppendItem(RowOf(rule), index++);
  ShowButtons();
}

std::optional<std::size_t> FrmPronunciations::Selected(const wxDataViewListCtrl& list) const {
  const wxDataViewItem item = list.GetSelection();
  return item.IsOk() ? std::optional<std::size_t>(list.GetItemData(item)) : std::nullopt;
}

void FrmPronunciations::ShowButtons() {
  const bool word = lstWords_ != nullptr && Selected(*lstWords_).has_value();
  const bool rule = lstRules_ != nullptr && Selected(*lstRules_).has_value();
  for (wxButton* const button : {words_.change, words_.remove, words_.sample})
    if (button != nullptr) button->Enable(word);
  for (wxButton* const button : {rules_.change, rules_.remove})
    if (button != nullptr) button->Enable(rule);
}

void FrmPronunciations::Store(const std::function<void()>& save) {
  try {
    save();
  } catch (const RuntimeError& error) {
    messageBoxes_.Show("Die Änderung konnte nicht gespeichert werden: " + std::string(error.what()) + ".",
                       kTitle, MessageIcon::Exclamation, MessageButtons::Ok);
  }
}

void FrmPronunciations::EditWord(const std::optional<OwnWord>& word) {
  FrmPronunciation dialog(this, word.value_or(OwnWord{}), sample_);
  if (dialog.ShowModal() != wxID_OK) return;
  Store([&] { pronunciations_.SaveWords(WithWord(pronunciations_.Words(), word, dialog.Word())); });
  FillWords();
}

void FrmPronunciations::RemoveWord() {
  const auto index = Selected(*lstWords_);
  if (!index) return;
  WordList words = pronunciations_.Words();
  words.erase(words.begin() + static_cast<std::ptrdiff_t>(*index));
  Store([&] { pronunciations_.SaveWords(words); });
  FillWords();
}

void FrmPronunciations::EditRule(std::optional<std::size_t> index) {
  ReadingRules rules = pronunciations_.Rules();
  FrmTextRule dialog(this, index ? rules[*index] : ReadingRule{.on = true, .pattern = "", .replacement = ""});
  if (dialog.ShowModal() != wxID_OK) return;
  if (!index) rules.emplace_back();
  rules[index.value_or(rules.size() - 1)] = dialog.Rule();
  Store([&] { pronunciations_.SaveRules(rules); });
  FillRules();
}

void FrmPronunciations::RemoveRule() {
  const auto index = Selected(*lstRules_);
  if (!index) return;
  ReadingRules rules = pronunciations_.Rules();
  rules.erase(rules.begin() + static_cast<std::ptrdiff_t>(*index));
  Store([&] { pronunciations_.SaveRules(rules); });
  FillRules();
}

void FrmPronunciations::RuleToggled(const wxDataViewEvent& event) {
  const auto row = static_cast<std::size_t>(lstRules_->ItemToRow(event.GetItem()));
  ReadingRules rules = pronunciations_.Rules();
  if (row >= rules.size()) return;
  rules[row].on = lstRules_->GetToggleValue(static_cast<unsigned>(row), 0);
  Store([&] { pronunciations_.SaveRules(rules); });
}

}  // namespace lorelin
