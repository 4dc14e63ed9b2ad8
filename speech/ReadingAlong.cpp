#include "speech/ReadingAlong.h"

#include <array>
#include <utility>

namespace lorelin {
namespace {

constexpr std::array kModes{std::pair{FollowMode::WordAndSentence, std::string_view("WordAndSentence")},
                            std::pair{FollowMode::Word, std::string_view("Word")},
                            std::pair{FollowMode::Sentence, std::string_view("Sentence")},
                            std::pair{FollowMode::Off, std::string_view("Off")}};

}  // namespace

FollowMode FollowModeOf(std::string_view name) {
  for (const auto& [mode, modeName] : kModes) {
    if (modeName == name) return mode;
  }
  return FollowMode::WordAndSentence;
}

std::string_view NameOf(FollowMode mode) {
  for (const auto& [known, name] : kModes) {
    if (known == mode) return name;
  }
  return {};
}

ReadingAlong::ReadingAlong(ModSpeak& speech, ReadingMarks& marks, SettingsStore& settings)
    : speech_(speech),
      marks_(marks),
      settings_(settings),
      mode_(FollowModeOf(settings.Get(setting::FollowMode))) {
  speech_.OnReading({.begins = [this](std::string source) { Begins(std::move(source)); },
                     .word = [this](const HeardWord& word) { Heard(word); },
                     .ends = [this] { End(); },
                     .holds =
                         [this](bool held) {
                           if (IsReading() && listener_.holds) listener_.holds(held);
                         }});
}

ReadingAlong::~ReadingAlong() {
  speech_.OnReading({});
  marks_.OnEdited({});
}

void ReadingAlong::SetMode(FollowMode mode) {
  mode_ = mode;
  settings_.Save(setting::FollowMode, NameOf(mode));
  Show();
}

void ReadingAlong::Begins(std::string source) {
  End();
  const TracedText* const text = speech_.CurrentText();
  if (text == nullptr || !text->HasSource()) return;
  begin_ = text->SourceBegin();
  sentences_.emplace(std::move(source));
  marks_.OnEdited([this](std::size_t place, std::size_t removed, std::size_t inserted) {
    shifts_.Edited(place, removed, inserted);
    Show();
  });
  Call(listener_.begins);
}

void ReadingAlong::End() {
  if (sentences_) {
    Call(listener_.ends);
    marks_.OnEdited({});
    marks_.Hide();
  }
  sentences_.reset();
  word_.reset();
  shifts_.Clear();
  sentence_ = 0;
  jumps_ = 0;
}

std::optional<HeardPlace> ReadingAlong::Place() const {
  if (!sentences_ || !word_) return std::nullopt;
  return HeardPlace{.sentence = sentence_, .character = word_->begin, .jumps = jumps_};
}

void ReadingAlong::Adopt(SentencePlaces sentences) {
  if (sentences_ && sentences_->Text() == sentences.Text()) sentences_ = std::move(sentences);
}

std::optional<std::size_t> ReadingAlong::SentenceBegin() {
  if (!CanSteer()) return std::nullopt;
  const CharacterRange range = sentences_->Range(sentence_);
  const auto now = Now({begin_ + range.begin, begin_ + range.end});
  if (now) return now->begin;
  // The sentence was edited; the word was rather not.
  const auto word = Now(*word_);
  return word ? std::optional(word->begin) : std::nullopt;
}

void ReadingAlong::Heard(const HeardWord& word) {
  const TracedText* const text = speech_.CurrentText();
  if (!sentences_ || text == nullptr) return;
  const auto source = text->Source({word.begin, word.end});
  if (!source) return;
  word_ = source;
  sentence_ = sentences_->At(source->begin - begin_);
  Show();
  Call(listener_.moved);
}

std::optional<MarkedRange> ReadingAlong::Now(CharacterRange range) const {
  const auto now = shifts_.Now(range);
  if (!now || now->begin >= now->end) return std::nullopt;
  return MarkedRange{now->begin, now->end};
}

void ReadingAlong::Show() {
  if (!sentences_ || !word_) return;
  if (mode_ == FollowMode::Off) return marks_.Hide();
  std::optional<MarkedRange> sentence;
  if (mode_ != FollowMode::Word) {
    const CharacterRange range = sentences_->Range(sentence_);
    sentence = Now({begin_ + range.begin, begin_ + range.end});
  }
  marks_.Show(mode_ == FollowMode::Sentence ? std::nullopt : Now(*word_), sentence);
}

void ReadingAlong::GoTo(std::size_t sentence) {
  const TracedText* const text = speech_.CurrentText();
  if (!CanSteer() || text == nullptr || !sentences_->Exists(sentence)) return;
  const CharacterRange range = sentences_->Range(sentence);
  if (!speech_.HearFrom(text->SpokenFrom(begin_ + range.begin))) return;
  ++jumps_;
  sentence_ = sentence;
}

void ReadingAlong::SentenceBack() {
  GoTo(sentence_ == 0 ? 0 : sentence_ - 1);
}
void ReadingAlong::SentenceOn() {
  GoTo(sentence_ + 1);
}
void ReadingAlong::RepeatSentence() {
  GoTo(sentence_);
}

// In the middle of a paragraph its own beginning is meant.
void ReadingAlong::ParagraphBack() {
  if (!sentences_) return;
  const std::size_t own = sentences_->ParagraphOf(sentence_);
  GoTo(own < sentence_ || own == 0 ? own : sentences_->ParagraphOf(own - 1));
}
void ReadingAlong::ParagraphOn() {
  if (sentences_) GoTo(sentences_->NextParagraph(sentence_));
}

void ReadingAlong::Stop() {
  const std::optional<MarkedRange> place = sentences_ && word_ ? Now(*word_) : std::nullopt;
  speech_.Stop();
  if (place) marks_.PlaceCaret(place->begin);
}

}  // namespace lorelin
