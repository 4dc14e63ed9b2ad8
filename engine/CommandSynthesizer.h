#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/CommandProgram.h"
#include "engine/Interruption.h"
#include "engine/ProgramStarter.h"
#include "engine/Synthesizer.h"
#include "engine/commandVoices.h"

namespace lorelin::engine {

// Voices that programs of the user's speak, sentence by sentence. What a program's arguments do not take of
// speed, pitch and volume is done to its sound.
class CommandSynthesizer final : public Synthesizer {
 public:
  CommandSynthesizer(std::vector<CommandVoice> voices, int sampleRate);

  [[nodiscard]] std::vector<Voice> Voices() const override;
  void Apply(std::size_t voice, const Utterance& utterance) override;
  void Prepare(std::size_t voice) override;
  bool Speak(std::string_view text, const Samples& samples, const WordMarker::Take& words) override;
  [[nodiscard]] std::string Problem() const override { return problem_; }
  [[nodiscard]] std::chrono::milliseconds Patience() const override;
  void SetCancelled(bool cancelled) override { interruption_.Set(cancelled); }

 private:
  [[nodiscard]] const CommandVoice& Current() const { return voices_[voice_]; }
  bool Fail();
  // The sound as it is to be heard, and how many times as long it is in samples.
  [[nodiscard]] std::vector<float> Shaped(const Sound& sound, double& scale) const;
  [[nodiscard]] std::size_t Pause(const std::vector<float>& sound) const;

  const std::vector<CommandVoice> voices_;
  const int sampleRate_;
  const ProgramStarter starter_{voices_};
  Interruption interruption_;
  CommandProgram program_{starter_, interruption_};
  Utterance utterance_;  // its parameters
  std::size_t voice_ = 0;
  std::string problem_;
};

}  // namespace lorelin::engine
