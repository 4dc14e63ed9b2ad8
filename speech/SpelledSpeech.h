#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "ports/DirectSS.h"
#include "ports/EventPump.h"
#include "speech/SpelledText.h"

namespace lorelin {

// Stands before an instance of the engine: what a German voice is to read goes to it as a person would say
// it, a voice of another language gets the text as it is. A long text is handed over in parts while the first
// ones are heard.
class SpelledSpeech final : public DirectSS {
 public:
  // The text in its spoken form; null for one that is to stay as it is. Instances that ask for the same text
  // share it.
  using Spelling = std::function<std::shared_ptr<SpelledText>(std::string_view text)>;

  // Owns neither the engine nor the pump, which must outlive it.
  SpelledSpeech(DirectSS& engine, EventPump& pump, Spelling spelling)
      : engine_(engine), pump_(pump), spelling_(std::move(spelling)) {}
  // Owns the engine.
  SpelledSpeech(std::unique_ptr<DirectSS> engine, EventPump& pump, Spelling spelling)
      : SpelledSpeech(*engine, pump, std::move(spelling)) {
    owned_ = std::move(engine);
  }

  // The text that was spoken last and what became of it; null when it went as it was.
  [[nodiscard]] std::shared_ptr<const SpelledText> Current() const { return current_; }

  void Speak(std::string_view text) override;
  void SpeakBeginning(std::string_view text) override;
  void ContinueText(std::string_view text, bool last) override;
  void PauseAudio() override { engine_.PauseAudio(); }
  void ResumeAudio() override { engine_.ResumeAudio(); }
  void ResetAudio() override;
  bool Speaking() override { return engine_.Speaking(); }
  void SetCurrentVoice(std::int32_t number) override;
  std::int32_t VoiceCount() override { return engine_.VoiceCount(); }
  std::string VoiceName(std::int32_t number) override { return engine_.VoiceName(number); }
  std::int32_t VoiceLanguage(std::int32_t number) override { return engine_.VoiceLanguage(number); }
  std::int32_t VoiceGender(std::int32_t number) override { return engine_.VoiceGender(number); }
  void SetPitch(std::int32_t value) override { engine_.SetPitch(value); }
  std::int32_t Pitch() override { return engine_.Pitch(); }
  std::int32_t MinPitch() override { return engine_.MinPitch(); }
  std::int32_t MaxPitch() override { return engine_.MaxPitch(); }
  void SetSpeed(std::int32_t value) override { engine_.SetSpeed(value); }
  std::int32_t Speed() override { return engine_.Speed(); }
  std::int32_t MinSpeed() override { return engine_.MinSpeed(); }
  std::int32_t MaxSpeed() override { return engine_.MaxSpeed(); }
  void SetVolumeLeft(std::int32_t value) override { engine_.SetVolumeLeft(value); }
  std::int32_t VolumeLeft() override { return engine_.VolumeLeft(); }
  void SetVolumeRight(std::int32_t value) override { engine_.SetVolumeRight(value); }
  std::int32_t VolumeRight() override { return engine_.VolumeRight(); }
  std::int32_t MinVolume() override { return engine_.MinVolume(); }
  std::int32_t MaxVolume() override { return engine_.MaxVolume(); }
  void SetWaveFile(const std::string& path) override { engine_.SetWaveFile(path); }
  void OnEndOfText(std::function<void(const EndOfText&)> handler) override {
    engine_.OnEndOfText(std::move(handler));
  }
  // Words are told as they were given to be spelled out.
  void OnWordHeard(std::function<void(const HeardWord&)> handler) override;

 private:
  struct Feeding;  // a text of which parts are still to be handed over

  [[nodiscard]] bool VoiceIsGerman();
  void Stop();
  void PostNext();
  void HandOver(const std::shared_ptr<Feeding>& feeding);

  std::unique_ptr<DirectSS> owned_;
  DirectSS& engine_;
  EventPump& pump_;
  Spelling spelling_;
  std::int32_t voice_ = 1;
  std::shared_ptr<SpelledText> current_;
  std::shared_ptr<Feeding> feeding_;
};

}  // namespace lorelin
