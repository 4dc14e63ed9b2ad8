#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "engine/SampleSink.h"
#include "engine/protocol.h"
#include "engine/waveReading.h"
#include "ports/DirectSS.h"

namespace lorelin {

// A text on its way into one sound file. Engines of Windows render into WAV files and do not tell when in
// them a word begins; so each sentence is rendered by itself, and the file is made of what they leave. Where
// a sentence begins and ends is known by its samples; its words share the time between by their lengths. All
// calls come from the engine's thread.
class SentenceRendering {
 public:
  struct Handlers {
    std::function<void(const HeardWord&)> word;
    std::function<void(const EndOfText&)> end;  // once, unless the object goes before
  };

  // Where the engine leaves a sentence of the text that goes into this file.
  [[nodiscard]] static std::string ScratchFileFor(const std::string& file);

  // Speaks with `engine`, which it does not own, the way `utterance` tells, whose text and parts it is given
  // by Add; into its file and format.
  SentenceRendering(DirectSS& engine, const engine::Utterance& utterance, Handlers handlers);
  // Leaves nothing of a text that did not come to its end.
  ~SentenceRendering();
  SentenceRendering(const SentenceRendering&) = delete;
  SentenceRendering& operator=(const SentenceRendering&) = delete;

  void Add(std::string_view text, bool last);
  // Goes on with what the engine has finished; call it whenever events were handled. Calls the handlers.
  void Turn();

 private:
  void GoOn();
  void ApplyProperties();
  void RenderNext();
  void TakeSentence(const EndOfText& end);
  // What the engine has left of the sentence; no samples where it left nothing, none at all for no sound.
  [[nodiscard]] std::optional<engine::Sound> TakeSound();
  void Append(const engine::Sound& sound);
  void TellWords(std::span<const float> samples);
  void OpenFile(std::uint32_t sampleRate);
  void Finish();
  void End(const std::string& problem);
  [[nodiscard]] std::chrono::milliseconds TimeOf(std::uint64_t sample) const;

  DirectSS& engine_;
  const engine::Utterance utterance_;
  const Handlers handlers_;
  const std::string scratchFile_;
  std::string text_;
  std::size_t next_ = 0;  // byte of the text that is to be rendered next
  bool complete_ = false;
  std::string sentence_;        // that is under way
  std::size_t characters_ = 0;  // of the whole text in front of it
  bool prepared_ = false;       // the engine has its properties
  bool underWay_ = false;       // the engine speaks
  std::optional<EndOfText> ended_;
  std::unique_ptr<engine::SampleSink> file_;  // from the first sound on
  std::uint32_t sampleRate_ = 0;
  std::uint64_t samples_ = 0;  // in the file
  bool over_ = false;
};

}  // namespace lorelin
