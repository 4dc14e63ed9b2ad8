#include "desktop/frmFind.h"

#include <wx/button.h>
#include <wx/display.h>
#include <wx/sizer.h>

#include <algorithm>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/plainText.h"
#include "desktop/toolkit/text.h"
#include "desktop/toolkit/textField.h"

namespace lorelin {

FrmFind::FrmFind(wxWindow* parent, WxDocumentEditor& editor, WxBrowserPane& page)
    : wxDialog(parent, wxID_ANY, "Suchen", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmFind"),
      editor_(editor),
      page_(page) {
  SetSizer(new wxBoxSizer(wxVERTICAL));
  BuildFields();
  BuildButtons();
  SetEscapeId(wxID_CLOSE);
  GetSizer()->SetSizeHints(this);
  CentreOnParent();
}

void FrmFind::BuildFields() {
  const int gap = FromDIP(12);
  auto* const grid = new wxFlexGridSizer(2, FromDIP(8), FromDIP(8));
  grid->AddGrowableCol(1);
  const auto field = [&](const char* caption, const char* name) {
    auto* const label = new wxStaticText(this, wxID_ANY, ToWx(caption));
    auto* const text = MakeTextField(this, name, FromDIP(300));
    grid->Add(label, wxSizerFlags().CenterVertical());
    grid->Add(text, wxSizerFlags().Expand());
    return std::pair(label, text);
  };
  wanted_ = field("Suchen &nach:", "txtWanted").second;
  SetAccessibleName(*wanted_, "Suchen nach");
  const auto [label, text] = field("Ersetzen &durch:", "txtReplacement");
  replacement_ = text;
  SetAccessibleName(*replacement_, "Ersetzen durch");
  forReplacing_ = {label, replacement_};
  GetSizer()->Add(grid, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  matchCase_ = new wxCheckBox(this, wxID_ANY, ToWx("&Groß- und Kleinschreibung beachten"));
  GetSizer()->Add(matchCase_, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  result_ = NewPlainText(this, " ", wxST_NO_AUTORESIZE, "lblResult");
  GetSizer()->Add(result_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
}

void FrmFind::BuildButtons() {
  const int gap = FromDIP(12);
  auto* const line = new wxBoxSizer(wxHORIZONTAL);
  const auto button = [&](int id, const char* caption, auto action) {
    auto* const made = new wxButton(this, id, ToWx(caption));
    made->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
    line->Add(made, wxSizerFlags().Border(wxLEFT, FromDIP(8)));
    return made;
  };
  line->AddStretchSpacer();
  button(wxID_FIND, "&Weitersuchen", [this] { Search(false); })->SetDefault();
  button(wxID_ANY, "&Rückwärts", [this] { Search(true); });
  forReplacing_.push_back(button(wxID_ANY, "&Ersetzen", [this] { Replace(); }));
  forReplacing_.push_back(button(wxID_ANY, "&Alle ersetzen", [this] { ReplaceAll(); }));
  button(wxID_CLOSE, "&Schließen", [this] { Hide(); });
  GetSizer()->Add(line, wxSizerFlags().Expand().Border(wxALL, gap));
}

void FrmFind::Open(bool replace) {
  SetTitle(replace ? "Suchen und ersetzen" : "Suchen");
  for (wxWindow* const window : forReplacing_) window->Show(replace);
  const std::string selected = page_.IsShown() ? "" : editor_.SelectedText();
  if (!selected.empty() && selected.find('\n') == std::string::npos) wanted_->SetValue(ToWx(selected));
  result_->SetLabel(" ");
  GetSizer()->SetSizeHints(this);
  Show();
  Raise();
  wanted_->SetFocus();
  wanted_->SelectAll();
}

bool FrmFind::SearchAgain() {
  if (Wanted().empty()) return false;
  Search(false);
  return true;
}

std::string FrmFind::Wanted() const {
  return FromWx(wanted_->GetValue());
}
std::string FrmFind::Replacement() const {
  return FromWx(replacement_->GetValue());
}

void FrmFind::Tell(const std::string& text) {
  result_->SetLabel(ToWx(text));
  if (text != " ") Announce(*result_);
}

void FrmFind::Search(bool backwards) {
  const bool matchCase = matchCase_->GetValue();
  const bool found = page_.IsShown() ? page_.Find(Wanted(), matchCase, backwards)
                                     : editor_.FindNext(Wanted(), matchCase, backwards);
  if (found && !page_.IsShown()) CallAfter(&FrmFind::UncoverHit);  // the text has yet to be scrolled
  Tell(found ? " " : "Nicht gefunden.");
}

// Below what was found, or above when there is no room.
void FrmFind::UncoverHit() {
  const wxRect hit = editor_.SelectionOnScreen();
  const wxRect place = GetScreenRect();
  if (!IsShown() || !place.Intersects(hit)) return;
  const wxRect screen = wxDisplay(this).GetClientArea();
  const int gap = FromDIP(12);
  const int below = hit.GetBottom() + gap;
  const int top = below + place.height <= screen.GetBottom() ? below : hit.y - gap - place.height;
  Move(place.x, std::max(screen.y, top));
}

// The window may still be open when a page comes.
void FrmFind::Replace() {
  if (page_.IsShown()) return Search(false);
  const bool more = editor_.ReplaceNext(Wanted(), Replacement(), matchCase_->GetValue());
  if (more) CallAfter(&FrmFind::UncoverHit);
  Tell(more ? " " : "Keine weitere Stelle.");
}

void FrmFind::ReplaceAll() {
  if (page_.IsShown()) return Tell("In einer Seite wird nichts ersetzt.");
  const int places = editor_.ReplaceAllPlaces(Wanted(), Replacement(), matchCase_->GetValue());
  Tell(places == 1 ? "1 Stelle ersetzt." : std::to_string(places) + " Stellen ersetzt.");
}

}  // namespace lorelin
