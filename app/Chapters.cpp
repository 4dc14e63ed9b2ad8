#include "app/Chapters.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/textEncoding.h"

namespace lorelin {

Chapters::Chapters(Parts parts) : parts_(parts) {
  parts_.list.OnChapterChosen([this](std::size_t index) { GoTo(index); });
}

void Chapters::AddCommands(CommandTable& commands) {
  commands.Add("NextChapter", [this] { Next(); });
  commands.Add("PreviousChapter", [this] { Previous(); });
  for (const auto* const command : {"NextChapter", "PreviousChapter"})
    commands.AddCondition(command, [this] { return Exist(); });
}

// Every change of the title comes here as well; only other chapters matter.
void Chapters::DocumentChanged() {
  const std::vector<Chapter>& now = parts_.documents.Current().info.chapters;
  if (now == given_) return;
  given_ = now;
  chapters_ = now;
  anchors_.clear();
  marked_.reset();
  const std::string text = now.empty() ? "" : parts_.document.Text();
  characters_ = CharacterCount(text);
  std::string_view rest = text;  // from the chapter before on: a book has many
  std::size_t begin = 0;
  for (const Chapter& chapter : now) {
    rest = FromCharacter(rest, chapter.position - begin);
    begin = chapter.position;
    anchors_.push_back(AnchorAt(rest, 0));
    anchors_.back().character = begin;
  }
  parts_.list.ShowChapters(chapters_);
  CaretMoved();
}

// What was typed ends at the caret, what was deleted was behind it.
void Chapters::Edited(std::size_t characters) {
  const std::size_t before = std::exchange(characters_, characters);
  if (chapters_.empty() || before == characters) return;
  const std::size_t caret = parts_.document.SelectionStart();
  const std::size_t grown = characters > before ? characters - before : 0;
  const std::size_t shrunk = before > characters ? before - characters : 0;
  const std::size_t place = caret > grown ? caret - grown : 0;
  for (Chapter& chapter : chapters_) {
    if (chapter.position < place) continue;
    chapter.position = std::max(place, chapter.position + grown - std::min(shrunk, chapter.position));
  }
}

std::optional<std::size_t> Chapters::ChapterAt(std::size_t character) const {
  const auto behind = std::ranges::upper_bound(chapters_, character, {}, &Chapter::position);
  if (behind == chapters_.begin()) return std::nullopt;
  return static_cast<std::size_t>(behind - chapters_.begin()) - 1;
}

void Chapters::Mark(std::optional<std::size_t> index) {
  if (index == marked_) return;
  marked_ = index;
  parts_.list.MarkChapter(index);
}

// The sentence that is heard, or else the caret.
std::size_t Chapters::Here() {
  const auto heard = parts_.along.IsReading() ? parts_.along.SentenceBegin() : std::nullopt;
  return heard ? *heard : parts_.document.SelectionStart();
}

void Chapters::Moved() {
  if (chapters_.empty()) return;
  if (const auto heard = parts_.along.SentenceBegin()) Mark(ChapterAt(*heard));
}

void Chapters::CaretMoved() {
  if (!chapters_.empty() && !parts_.along.IsReading()) Mark(ChapterAt(parts_.document.SelectionStart()));
}

void Chapters::Next() {
  const auto current = ChapterAt(Here());
  const std::size_t next = current ? *current + 1 : 0;
  if (next < chapters_.size()) return GoTo(next);
  if (Exist()) parts_.statusBar.SetMessage("Das ist das letzte Kapitel.");
}

// First to the beginning of this one, when the place is not there already.
void Chapters::Previous() {
  const std::size_t here = Here();
  const auto current = ChapterAt(here);
  if (!current || (*current == 0 && here <= chapters_.front().position)) {
    if (Exist()) parts_.statusBar.SetMessage("Davor ist kein Kapitel.");
    return;
  }
  GoTo(here > chapters_[*current].position ? *current : *current - 1);
}

void Chapters::GoTo(std::size_t index) {
  if (index >= chapters_.size()) return;
  anchors_[index].character = chapters_[index].position;
  const std::size_t place = PlaceOf(anchors_[index], parts_.document.Text());
  chapters_[index].position = place;
  parts_.modes.Textmode();
  ReadOrShow(place);
  Mark(index);
  parts_.statusBar.SetMessage("Kapitel " + std::to_string(index + 1) + " von " +
                              std::to_string(chapters_.size()) + ": " + chapters_[index].title);
}

// The voice is moved within what is being read; the rendering of it need not begin anew.
void Chapters::ReadOrShow(std::size_t place) {
  ReadingAlong& along = parts_.along;
  if (!along.IsReading()) return parts_.marks.PlaceCaret(place);
  if (along.CanSteer() && place >= along.Begin()) {
    const std::size_t sentence = along.Sentences()->At(place - along.Begin());
    const CharacterRange range = along.Sentences()->Range(sentence);
    const auto now = along.Now({.begin = range.begin + along.Begin(), .end = range.end + along.Begin()});
    if (now && now->begin <= place && place < now->end) return along.GoTo(sentence);
  }
  parts_.speech.ReadFrom(place);
}

}  // namespace lorelin
