#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/protocol.h"
#include "engine/wordMarks.h"

namespace lorelin::engine {

// What turns texts into samples: 16 bit, one channel, at the engine's rate. Used by one thread, but for
// SetCancelled.
class Synthesizer {
 public:
  // Takes samples as they come; false ends the synthesis.
  using Samples = std::function<bool(std::span<const std::int16_t>)>;

  Synthesizer() = default;
  Synthesizer(const Synthesizer&) = delete;
  Synthesizer& operator=(const Synthesizer&) = delete;
  virtual ~Synthesizer() = default;

  [[nodiscard]] virtual std::vector<Voice> Voices() const = 0;
  // Parameters of the texts that follow, and the voice: its place among Voices().
  virtual void Apply(std::size_t voice, const Utterance& utterance) = 0;
  // A text with this voice is going to follow: what takes its time may be done now.
  virtual void Prepare(std::size_t) {}
  // Synthesizes the text; false when `samples` ended it, it was cancelled or something failed. `words` gets
  // every word before the sample it begins with, places and samples counted from the text's beginning.
  virtual bool Speak(std::string_view text, const Samples& samples, const WordMarker::Take& words) = 0;
  // Why the last Speak failed: a German sentence, "" when there is nothing to say.
  [[nodiscard]] virtual std::string Problem() const { return {}; }
  // How long it may take from one call of `samples` to the next before it counts as stuck.
  [[nodiscard]] virtual std::chrono::milliseconds Patience() const = 0;
  // While this is set, Speak ends as soon as it can. From any thread.
  virtual void SetCancelled(bool) {}
};

}  // namespace lorelin::engine
