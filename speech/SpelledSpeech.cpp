#include "speech/SpelledSpeech.h"

namespace lorelin {
namespace {

constexpr std::int32_t kPrimaryLanguage = 0x3FF;
constexpr std::int32_t kGerman = 0x07;

}  // namespace

struct SpelledSpeech::Feeding {
  std::size_t next = 1;
};

bool SpelledSpeech::VoiceIsGerman() {
  return (engine_.VoiceLanguage(voice_) & kPrimaryLanguage) == kGerman;
}

void SpelledSpeech::SetCurrentVoice(std::int32_t number) {
  engine_.SetCurrentVoice(number);
  if (number >= 1 && number <= engine_.VoiceCount()) voice_ = number;
}

void SpelledSpeech::Speak(std::string_view text) {
  Stop();
  current_ = VoiceIsGerman() ? spelling_(text) : nullptr;
  if (!current_) return engine_.Speak(text);
  const std::string_view first = current_->Part(0);
  if (current_->IsLast(0)) return engine_.Speak(first);
  engine_.SpeakBeginning(first);
  feeding_ = std::make_shared<Feeding>();
  PostNext();
}

// Who hands over parts has cut them, and may have cut what belongs together.
void SpelledSpeech::SpeakBeginning(std::string_view text) {
  Stop();
  current_ = nullptr;
  engine_.SpeakBeginning(text);
}

void SpelledSpeech::ContinueText(std::string_view text, bool last) {
  if (!feeding_) engine_.ContinueText(text, last);
}

void SpelledSpeech::ResetAudio() {
  Stop();
  engine_.ResetAudio();
}

void SpelledSpeech::OnWordHeard(std::function<void(const HeardWord&)> handler) {
  if (!handler) return engine_.OnWordHeard({});
  engine_.OnWordHeard([this, handler = std::move(handler)](const HeardWord& word) {
    if (!current_) return handler(word);
    const CharacterRange written = WrittenRange(current_->Runs(), {word.begin, word.end});
    handler({written.begin, written.end, word.time});
  });
}

void SpelledSpeech::Stop() {
  feeding_.reset();
}

void SpelledSpeech::PostNext() {
  pump_.Post([this, alive = std::weak_ptr(feeding_)] {
    if (const auto feeding = alive.lock()) HandOver(feeding);
  });
}

// A text that has come to its end before its time, with a dead engine, needs no more parts.
void SpelledSpeech::HandOver(const std::shared_ptr<Feeding>& feeding) {
  if (feeding != feeding_) return;
  if (!engine_.Speaking()) return Stop();
  const std::size_t number = feeding->next++;
  const std::string_view part = current_->Part(number);
  const bool last = current_->IsLast(number);
  if (last) Stop();
  engine_.ContinueText(part, last);
  if (!last) PostNext();
}

}  // namespace lorelin
