#include "speech/ReadingProgress.h"

#include <algorithm>
#include <utility>

namespace lorelin {
namespace {

constexpr std::string_view kBetween = "  ·  ";

std::string TwoDigits(std::chrono::seconds::rep number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

std::string TimeGone(std::chrono::seconds time) {
  const auto all = time.count();
  const auto minutes = all / 60 % 60;
  const std::string tail = ":" + TwoDigits(all % 60);
  if (all < 3600) return std::to_string(minutes) + tail;
  return std::to_string(all / 3600) + ":" + TwoDigits(minutes) + tail;
}

std::string TimeLeft(std::chrono::seconds time) {
  const auto all = time.count();
  if (all <= 50) return std::to_string((all + 9) / 10 * 10) + " s";
  const auto minutes = (all + 59) / 60;
  if (minutes < 60) return std::to_string(minutes) + " min";
  return std::to_string(minutes / 60) + " h " + std::to_string(minutes % 60) + " min";
}

ReadingProgress::ReadingProgress(Parts parts) : parts_(parts) {
  parts_.bar.OnPlaceChosen([this](std::size_t sentence) { GoTo(sentence); });
}

// A selection is read by itself; of everything else the document is the measure.
void ReadingProgress::Begins() {
  Ends();
  const auto source = parts_.along.Sentences()->Text();
  std::string before = parts_.document.Text();
  toTheEnd_ = before.ends_with(*source);
  before.resize(toTheEnd_ ? before.size() - source->size() : 0);
  before.shrink_to_fit();
  finding_.emplace(std::move(before), source);
  pace_.Begin(parts_.clock.Steady());
  speed_ = parts_.speech.Voice().Speed();
}

void ReadingProgress::Moved() {
  const auto place = parts_.along.Place();
  if (!place) return;
  const bool jumped = std::exchange(jumps_, place->jumps) != place->jumps;
  const std::int32_t speed = parts_.speech.Voice().Speed();
  if (std::exchange(speed_, speed) != speed) pace_.ChangeSpeed();
  pace_.Heard(parts_.clock.Steady(), place->character, jumped);
  if (finding_) {
    auto found = finding_->Take();
    if (!found) return;
    finding_.reset();
    count_ = found->text.Count();
    end_ = parts_.along.Begin() + found->text.Characters();
    inFront_ = found->before.Count() - (found->within ? 1 : 0);
    before_ = std::move(found->before);
    parts_.along.Adopt(std::move(found->text));
  }
  Show(*place);
}

void ReadingProgress::Show(const HeardPlace& place) {
  ShownPlace shown;
  shown.sentence = inFront_ + place.sentence + 1;
  shown.sentences = inFront_ + count_;
  shown.text = Text(shown, place);
  if (shown == shown_) return;
  shown_ = shown;
  parts_.bar.ShowPlace(shown);
}

std::string ReadingProgress::Text(const ShownPlace& shown, const HeardPlace& place) const {
  std::string text = "Satz " + std::to_string(shown.sentence) + " von " + std::to_string(shown.sentences);
  text.append(kBetween).append(TimeGone(pace_.Gone()));
  const auto left = pace_.Left(end_ - std::min(end_, place.character));
  if (left) text.append(kBetween).append("noch ").append(TimeLeft(*left));
  return text;
}

void ReadingProgress::Ends() {
  finding_.reset();
  before_.reset();
  jumps_ = 0;
  toTheEnd_ = false;
  if (std::exchange(shown_, std::nullopt)) parts_.bar.HidePlace();
}

bool ReadingProgress::IsInLastSentence() const {
  return shown_ && shown_->sentence == shown_->sentences;
}

// What stands in front of the text that is read is read as another one.
void ReadingProgress::GoTo(std::size_t sentence) {
  if (!before_ || sentence == 0) return;
  if (sentence > inFront_) return parts_.along.GoTo(sentence - 1 - inFront_);
  const CharacterRange range = before_->Range(sentence - 1);
  const auto now = parts_.along.Now(range);
  if (now) parts_.speech.ReadFrom(now->begin);
}

}  // namespace lorelin
