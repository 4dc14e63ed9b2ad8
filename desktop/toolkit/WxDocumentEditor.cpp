#include "desktop/toolkit/WxDocumentEditor.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/layoutPace.h"
#include "desktop/toolkit/text.h"
#include "documents/richTextFile.h"

namespace lorelin {
namespace {

constexpr double kZoomStep = 1.15;

// Where a text stands in another one.
class TextPlaces {
 public:
  TextPlaces(const wxString& text, const wxString& wanted, bool matchCase)
      : text_(matchCase ? text : text.Lower()), wanted_(matchCase ? wanted : wanted.Lower()) {}

  [[nodiscard]] long Length() const { return static_cast<long>(wanted_.length()); }
  [[nodiscard]] bool IsWhole() const { return !wanted_.empty() && text_ == wanted_; }
  [[nodiscard]] std::optional<long> From(long position) const {
    if (wanted_.empty()) return std::nullopt;
    std::size_t place = text_.find(wanted_, static_cast<std::size_t>(position));
    if (place == wxString::npos) place = text_.find(wanted_);
    return Found(place);
  }
  [[nodiscard]] std::optional<long> Before(long position) const {
    if (wanted_.empty()) return std::nullopt;
    std::size_t place =
        position > 0 ? text_.rfind(wanted_, static_cast<std::size_t>(position) - 1) : wxString::npos;
    if (place == wxString::npos) place = text_.rfind(wanted_);
    return Found(place);
  }
  [[nodiscard]] std::vector<long> All() const {
    std::vector<long> places;
    if (wanted_.empty()) return places;
    for (std::size_t at = text_.find(wanted_); at != wxString::npos;
         at = text_.find(wanted_, at + wanted_.length())) {
      places.push_back(static_cast<long>(at));
    }
    return places;
  }

 private:
  static std::optional<long> Found(std::size_t place) {
    if (place == wxString::npos) return std::nullopt;
    return static_cast<long>(place);
  }

  wxString text_;
  wxString wanted_;
};

constexpr float kReadingSize = 1.2F;  // of the system's

}  // namespace

WxDocumentEditor::WxDocumentEditor(wxWindow* parent)
    : wxTextCtrl(parent, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                 wxTE_MULTILINE | wxTE_RICH2 | wxTE_NOHIDESEL, wxDefaultValidator, "rtfText"),
      usualFont_(GetFont().Scaled(kReadingSize)),
      buffer_(*this, usualFont_),
      look_(*this, FromDIP(12), FromDIP(10)),
      marks_(MakeReadingMarks(*this)) {
  SetAccessibleName(*this, "Dokument");
  LayOutBehindOtherWork(*this);
  buffer_.ShowLongParagraphsInPieces();
}

std::string WxDocumentEditor::Text() {
  return buffer_.Text();
}
void WxDocumentEditor::SetText(std::string_view text) {
  const bool clean = text.find('\0') == std::string_view::npos;
  clean ? buffer_.ReplaceText(text) : buffer_.ReplaceText(WithoutNul(text));
}

std::string WxDocumentEditor::RichText() {
  return buffer_.Rtf()();
}
std::function<std::string()> WxDocumentEditor::RichTextLater() {
  return buffer_.Rtf();
}

LoadedFile WxDocumentEditor::LoadFile(const std::string& path) {
  return buffer_.ShowFile(path);
}
void WxDocumentEditor::ShowRichText(const std::string& rtf) {
  buffer_.ShowRtf(rtf);
}

void WxDocumentEditor::Undo() {
  buffer_.Undo();
}
void WxDocumentEditor::Redo() {
  buffer_.Redo();
}

bool WxDocumentEditor::FindNext(const std::string& text, bool matchCase, bool backwards) {
  long from = 0;
  long to = 0;
  GetSelection(&from, &to);
  const TextPlaces places(ToWx(buffer_.Text()), ToWx(text), matchCase);
  const auto place = backwards ? places.Before(from) : places.From(to);
  if (!place) return false;
  SetSelection(*place, *place + places.Length());
  ShowPosition(*place);
  return true;
}

bool WxDocumentEditor::ReplaceNext(const std::string& text, const std::string& replacement, bool matchCase) {
  const TextPlaces places(ToWx(buffer_.SelectedText()), ToWx(text), matchCase);
  if (places.IsWhole()) ReplaceSelection(replacement);
  return FindNext(text, matchCase, false);
}

int WxDocumentEditor::ReplaceAllPlaces(const std::string& text, const std::string& replacement,
                                       bool matchCase) {
  const TextPlaces places(ToWx(buffer_.Text()), ToWx(text), matchCase);
  const std::vector<long> all = places.All();
  if (all.empty()) return 0;
  ReplacePlaces(all, places.Length(), WithoutNul(replacement));
  return static_cast<int>(all.size());
}

// Told once, since whoever is told counts and paints.
void WxDocumentEditor::ReplacePlaces(const std::vector<long>& places, long length,
                                     std::string_view replacement) {
  {
    const EventsSuppressor quiet(this);
    buffer_.ReplacePlaces(places, length, replacement);
  }
  SendTextUpdatedEvent();
}

wxRect WxDocumentEditor::SelectionOnScreen() const {
  long from = 0;
  long to = 0;
  GetSelection(&from, &to);
  const wxPoint begin = PositionToCoords(from);
  const wxPoint end = PositionToCoords(to);
  const bool oneLine = end.y == begin.y;
  const int right = oneLine ? end.x : GetClientSize().x;
  const int height = static_cast<int>(GetCharHeight() * std::pow(kZoomStep, zoomSteps_)) + FromDIP(4);
  return {ClientToScreen(begin), wxSize(std::max(right - begin.x, 1), height)};
}

void WxDocumentEditor::SetZoom(int steps) {
  zoomSteps_ = steps;
  buffer_.SetZoom(std::pow(kZoomStep, zoomSteps_));
  look_.Update();
}

// The ground first: the colours of the text depend on it.
void WxDocumentEditor::ShowLook(const ReadingLook& look) {
  wxFont font = usualFont_;
  if (!look.font.empty()) font.SetFaceName(ToWx(look.font));
  if (look.points != 0) font.SetPointSize(look.points);
  look_.Show(look);
  buffer_.ShowIn(font, !look.font.empty());
  look_.Update();
}

std::size_t WxDocumentEditor::SelectionStart() {
  long from = 0;
  long to = 0;
  GetSelection(&from, &to);
  return buffer_.CharactersBefore(from);
}

std::string WxDocumentEditor::SelectedText() {
  return buffer_.SelectedText();
}

void WxDocumentEditor::ReplaceSelection(std::string_view text) {
  long from = 0;
  long to = 0;
  GetSelection(&from, &to);
  Replace(from, to, ToWx(WithoutNul(text)));
}

}  // namespace lorelin
