#include "app/ContinuedReading.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr std::string_view kGroup = "Weiterlesen";
constexpr std::int32_t kItem = 1200;
constexpr std::size_t kMostLetters = 40;
constexpr std::string_view kBlanks = " \t\r\n";

}  // namespace

std::string FirstWords(std::string_view text) {
  std::string words;
  std::size_t letters = 0;
  while (true) {
    text.remove_prefix(std::min(text.size(), text.find_first_not_of(kBlanks)));
    const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
    if (word.empty()) return words;
    letters += CharacterCount(word) + 1;
    if (letters > kMostLetters && !words.empty()) return words + " …";
    words.append(words.empty() ? "" : " ").append(word);
    text.remove_prefix(word.size());
    if (letters > kMostLetters)
      return words.substr(0, words.size() - FromCharacter(words, kMostLetters).size()) + "…";
  }
}

void ContinuedReading::AddGroup() {
  parts_.taskPane.AddGroup(kGroup);
}

std::optional<TextAnchor> ContinuedReading::OfferAt(const std::string& text, std::size_t character) {
  const std::string_view rest = FromCharacter(text, character);
  const std::size_t gap = rest.find_first_not_of(kBlanks);
  if (gap == std::string_view::npos) return std::nullopt;
  return AnchorAt(text, character + gap);
}

void ContinuedReading::ShowOffer(std::optional<TextAnchor> offer) {
  if (!offer && !offer_) return;
  offer_ = std::move(offer);
  AddGroup();
  if (!offer_) return;
  parts_.taskPane.AddItem(kGroup, kItem, "Weiterlesen bei „" + FirstWords(offer_->words) + "“",
                          TaskPaneRequest::Continue);
}

// Every change of the title comes here as well; only another file is looked up.
void ContinuedReading::DocumentChanged() {
  const Document& current = parts_.documents.Current();
  if (current.shown == shown_ && current.stamp == stamp_) return;
  const bool another = std::exchange(shown_, current.shown) != current.shown;
  stamp_ = current.stamp;
  if (shown_.empty()) return ShowOffer(std::nullopt);
  if (parts_.along.IsReading() && !another) return;
  if (!parts_.places.HasAny()) return ShowOffer(std::nullopt);  // a long text takes its time to be fetched
  const std::string text = parts_.document.Text();
  const auto place = parts_.places.Find(shown_, text);
  ShowOffer(place ? OfferAt(text, *place) : std::nullopt);
  if (offer_ && another)
    parts_.statusBar.SetMessage("Umschalt+F7: weiterlesen bei „" + FirstWords(offer_->words) + "“");
}

void ContinuedReading::Begins() {
  read_ = shown_;
  ShowOffer(std::nullopt);
}

// Who pauses may never come back to it.
void ContinuedReading::Holds(bool held) {
  if (held) Keep();
}

void ContinuedReading::Ends() {
  Keep();
  read_.clear();
}

// What was read to its last sentence is done with, and at the first one there is nothing to go on with.
void ContinuedReading::Keep() {
  if (read_.empty() || read_ != shown_ || !parts_.progress.ReadsToTheEnd()) return;
  const auto place = parts_.along.SentenceBegin();
  if (!place) return;
  if (*place == 0 || parts_.progress.IsInLastSentence()) return parts_.places.Forget(read_);
  const std::string text = parts_.document.Text();
  parts_.places.Keep(read_, text, *place);
  ShowOffer(OfferAt(text, *place));
}

void ContinuedReading::Continue() {
  if (!offer_) return;
  const std::string text = parts_.document.Text();
  const std::size_t place = PlaceOf(*offer_, text);
  parts_.modes.Textmode();
  parts_.speech.ReadFrom(place);
}

}  // namespace lorelin
