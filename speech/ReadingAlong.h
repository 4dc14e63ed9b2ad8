#pragma once

#include <cstddef>
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

// The text follows the voice: word and sentence that are heard are marked in the document, and the voice can
// be moved to another sentence. Only what is heard moves; the rendering goes on. User-interface thread only.
class ReadingAlong {
 public:
  // Owns none of them; they must outlive it.
  ReadingAlong(ModSpeak& speech, ReadingMarks& marks, SettingsStore& settings);
  ~ReadingAlong();
  ReadingAlong(const ReadingAlong&) = delete;
  ReadingAlong& operator=(const ReadingAlong&) = delete;

  // Remembered.
  void SetMode(FollowMode mode);
  [[nodiscard]] FollowMode Mode() const { return mode_; }

  // Whether a text of the document is heard or held.
  [[nodiscard]] bool IsReading() const { return sentences_.has_value(); }
  // Whether the voice can be moved: something was heard already, so it is known where it is.
  [[nodiscard]] bool CanSteer() const { return sentences_ && word_; }
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
  void Begin(std::string source);
  void End();
  void Heard(const HeardWord& word);
  void Show();
  void GoTo(std::size_t sentence);
  // The place in the document as it is now.
  [[nodiscard]] std::optional<MarkedRange> Now(CharacterRange range) const;

  ModSpeak& speech_;
  ReadingMarks& marks_;
  SettingsStore& settings_;
  FollowMode mode_;
  std::optional<SentencePlaces> sentences_;  // of the text that is read
  std::size_t begin_ = 0;                    // of that text in the document
  TextShifts shifts_;                        // of the document since then
  std::optional<CharacterRange> word_;       // in the document as it was
  std::size_t sentence_ = 0;
};

// As it is stored; what is none of the names is WordAndSentence.
[[nodiscard]] FollowMode FollowModeOf(std::string_view name);
[[nodiscard]] std::string_view NameOf(FollowMode mode);

}  // namespace lorelin
