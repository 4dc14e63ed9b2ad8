#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/protocol.h"
#include "engine/voiceCatalog.h"
#include "engine/wordMarks.h"

namespace lorelin::engine {

// libespeak-ng, which keeps its state per process: there is one synthesizer, used by one thread.
class Synthesizer {
 public:
  // Takes samples as they come; false ends the synthesis.
  using Samples = std::function<bool(std::span<const std::int16_t>)>;

  // Throws std::runtime_error when the library or its data is missing.
  Synthesizer();
  ~Synthesizer();
  Synthesizer(const Synthesizer&) = delete;
  Synthesizer& operator=(const Synthesizer&) = delete;

  [[nodiscard]] int SampleRate() const { return sampleRate_; }
  [[nodiscard]] Capabilities Describe() const;
  // Voice and parameters of the texts that follow.
  void Apply(const Utterance& utterance);
  // Synthesizes the text piece by piece; false when `samples` ended it or the library failed. `words` gets
  // every word before the sample it begins with, places and samples counted from the text's beginning.
  bool Speak(std::string_view text, const Samples& samples, const WordMarker::Take& words);

 private:
  int sampleRate_ = 0;
  std::vector<CatalogVoice> catalog_;
  std::string selected_;
};

}  // namespace lorelin::engine
