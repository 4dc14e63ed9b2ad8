#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "ports/ReadingMarks.h"
#include "settings/SettingsStore.h"
#include "speech/SentencePlaces.h"
#include "speech/TextShifts.h"
#include "speech/modSpeak.h"

namespace lorelin {

// What is marked in the document while it is read.
enum class FollowMode { WordAndSentence, Word, Sentence, Off };

// Where the voice is in the text that is read.
struct HeardPlace {
  std::size_t sentence = 0;   // from 0
  std::size_t character = 0;  // of the word, in the document as it was when the reading began
  std::size_t jumps = 0;      // how often the voice was moved so far
};

// The text follows the voice: word and sentence that are heard are marked in the document, and the voice can
// be moved to another sentence. Only what is heard moves; the rendering goes on. User-interface thread only.
class ReadingAlong {
 public:
  // Owns none of them; they must outlive it.
  ReadingAlong(ModSpeak& speech, ReadingMarks& marks, SettingsStore& settings);
  ~ReadingAlong();
  ReadingAlong(const ReadingAlong&) = delete;
  ReadingAlong& operator=(const ReadingAlong&) = delete;

  // Who wants to know how the reading goes on. `ends` is told while it is still known where the voice was.
  struct Listener {
    std::function<void()> begins;
    std::function<void()> moved;  // a word is heard
    std::function<void(bool held)> holds;
    std::function<void()> ends;
  };
  void Tell(Listener listener) { listener_ = std::move(listener); }

  // Remembered.
  void SetMode(FollowMode mode);
  [[nodiscard]] FollowMode Mode() const { return mode_; }

  // Whether a text of the document is heard or held.
  [[nodiscard]] bool IsReading() const { return sentences_.has_value(); }
  // Whether the voice can be moved: something was heard already, so it is known where it is.
  [[nodiscard]] bool CanSteer() const { return sentences_ && word_; }
  // Nothing before the first word.
  [[nodiscard]] std::optional<HeardPlace> Place() const;
  // The sentences of the text that is read, and where that begins in the document as it was.
  [[nodiscard]] SentencePlaces* Sentences() { return sentences_ ? &*sentences_ : nullptr; }
  [[nodiscard]] std::size_t Begin() const { return begin_; }
  // The same sentences, which somebody else has found meanwhile.
  void Adopt(SentencePlaces sentences);
  // Where this is in the document as it is now; nothing when it was edited.
  [[nodiscard]] std::optional<MarkedRange> Now(CharacterRange range) const;
  // The beginning of the sentence that is heard, in the document as it is now.
  [[nodiscard]] std::optional<std::size_t> SentenceBegin();

  // The voice goes on from this sentence.
  void GoTo(std::size_t sentence);
  void SentenceBack();
  void SentenceOn();
  void ParagraphBack();
  void ParagraphOn();
  void RepeatSentence();
  // The user stops: the caret stands where the voice was.
  void Stop();
  // Scrolls to what is being read and follows it again.
  void Return() { marks_.Return(); }

 private:
  void Begins(std::string source);
  void End();
  void Call(const std::function<void()>& handler) const {
    if (handler) handler();
  }
  void Heard(const HeardWord& word);
  void Show();

  ModSpeak& speech_;
  ReadingMarks& marks_;
  SettingsStore& settings_;
  FollowMode mode_;
  std::optional<SentencePlaces> sentences_;  // of the text that is read
  std::size_t begin_ = 0;                    // of that text in the document
  TextShifts shifts_;                        // of the document since then
  std::optional<CharacterRange> word_;       // in the document as it was
  std::size_t sentence_ = 0;
  std::size_t jumps_ = 0;
  Listener listener_;
};

// As it is stored; what is none of the names is WordAndSentence.
[[nodiscard]] FollowMode FollowModeOf(std::string_view name);
[[nodiscard]] std::string_view NameOf(FollowMode mode);

}  // namespace lorelin
