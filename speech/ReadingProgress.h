#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "ports/Clock.h"
#include "ports/DocumentEditor.h"
#include "ports/PlaceBar.h"
#include "speech/ReadingAlong.h"
#include "speech/ReadingPace.h"
#include "speech/SentenceFinding.h"
#include "speech/modSpeak.h"

namespace lorelin {

// Shows how far a text of the document is read and how long it will take, and goes where the reader wants.
// Works only when a word is heard. User-interface thread only.
class ReadingProgress {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    ReadingAlong& along;
    ModSpeak& speech;
    DocumentEditor& document;
    PlaceBar& bar;
    Clock& clock;
  };

  explicit ReadingProgress(Parts parts);
  ~ReadingProgress() { parts_.bar.OnPlaceChosen({}); }
  ReadingProgress(const ReadingProgress&) = delete;
  ReadingProgress& operator=(const ReadingProgress&) = delete;

  // What ReadingAlong tells.
  void Begins();
  void Moved();
  void Holds(bool held) { pace_.Hold(parts_.clock.Steady(), held); }
  void Ends();

  // Whether the last sentence is being heard, with which the document ends.
  [[nodiscard]] bool IsInLastSentence() const;
  // Whether what is read goes on to the end of the document.
  [[nodiscard]] bool ReadsToTheEnd() const { return toTheEnd_; }
  // Waits until all sentences are found.
  void FinishFinding() const {
    if (finding_) finding_->Wait();
  }

 private:
  void Show(const HeardPlace& place);
  void GoTo(std::size_t sentence);
  [[nodiscard]] std::string Text(const ShownPlace& shown, const HeardPlace& place) const;

  Parts parts_;
  ReadingPace pace_;
  std::optional<SentenceFinding> finding_;
  std::optional<SentencePlaces> before_;  // the sentences in front of what is read, once they are found
  std::size_t inFront_ = 0;               // how many those are
  std::size_t count_ = 0;                 // of the sentences of what is read
  std::size_t end_ = 0;                   // of it, in characters of the document
  std::size_t jumps_ = 0;
  std::int32_t speed_ = 0;
  bool toTheEnd_ = false;
  std::optional<ShownPlace> shown_;
};

// "0:42", "1:02:33".
[[nodiscard]] std::string TimeGone(std::chrono::seconds time);
// "20 s", "12 min", "2 h 5 min"; it is never certain enough for more.
[[nodiscard]] std::string TimeLeft(std::chrono::seconds time);

}  // namespace lorelin
