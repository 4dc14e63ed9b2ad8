#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/EspeakLibrary.h"
#include "engine/Synthesizer.h"
#include "engine/protocol.h"

namespace lorelin::engine {

// All that speaks in this process, and which of it the voice of a text belongs to. The voices of eSpeak NG
// have the first numbers, whatever else is installed, and natural voices those that follow.
class Synthesizers {
 public:
  Synthesizers();

  [[nodiscard]] int SampleRate() const { return library_.SampleRate(); }
  [[nodiscard]] Capabilities Describe() const;
  // German sentences about voices that are there and cannot be used.
  [[nodiscard]] const std::vector<std::string>& Remarks() const { return remarks_; }
  // The one that speaks with the text's voice, prepared for it; a number that no voice has leaves the one
  // before.
  Synthesizer& Choose(const Utterance& utterance);
  // A text with this voice is going to follow.
  void Prepare(std::int32_t voice);
  // From any thread: whoever speaks ends as soon as it can.
  void SetCancelled(bool cancelled);

 private:
  struct Part {
    std::unique_ptr<Synthesizer> synthesizer;
    std::vector<Voice> voices;
  };

  void Add(std::unique_ptr<Synthesizer> synthesizer);
  void AddNaturalVoices();
  void AddCommandVoices();
  void Select(std::int32_t voice);

  EspeakLibrary library_;
  std::vector<Part> parts_;
  std::vector<std::string> remarks_;
  std::size_t part_ = 0;
  std::size_t voice_ = 0;  // of that part
};

}  // namespace lorelin::engine
