#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "engine/EspeakLibrary.h"
#include "engine/Synthesizer.h"
#include "engine/voiceCatalog.h"

namespace lorelin::engine {

// The voices of libespeak-ng.
class EspeakSynthesizer final : public Synthesizer {
 public:
  // The library must outlive the object.
  explicit EspeakSynthesizer(EspeakLibrary& library);

  // Without voices: what the library takes, which is what the program calls pitch, speed and volume.
  [[nodiscard]] static Capabilities Ranges();

  [[nodiscard]] std::vector<Voice> Voices() const override;
  void Apply(std::size_t voice, const Utterance& utterance) override;
  bool Speak(std::string_view text, const Samples& samples, const WordMarker::Take& words) override;
  [[nodiscard]] std::chrono::milliseconds Patience() const override;

 private:
  EspeakLibrary& library_;
  std::vector<CatalogVoice> catalog_;
};

}  // namespace lorelin::engine
