#pragma once

#include <memory>
#include <string>

#include "engine/WaveFileWriter.h"
#include "ports/DirectSS.h"

namespace lorelin::cli {

// Puts the texts that an instance renders one behind the other into one WAV file. It stands before the
// instance, whose own files it leaves alone.
class WaveCollector final : public DirectSS {
 public:
  // Does not own the instance, which must outlive it.
  WaveCollector(DirectSS& engine, std::string path) : engine_(engine), path_(std::move(path)) {}

  // The collected file is complete; without it the destructor removes the file. False, with a German reason
  // in Problem, when it could not be written; nothing is written when nothing was spoken.
  [[nodiscard]] bool Finish();
  [[nodiscard]] const std::string& Problem() const { return problem_; }

  void Speak(std::string_view text) override {
    underWay_ = rendered_;
    engine_.Speak(text);
  }
  void SpeakBeginning(std::string_view text) override {
    underWay_ = rendered_;
    engine_.SpeakBeginning(text);
  }
  void ContinueText(std::string_view text, bool last) override { engine_.ContinueText(text, last); }
  void PauseAudio() override { engine_.PauseAudio(); }
  void ResumeAudio() override { engine_.ResumeAudio(); }
  void ResetAudio() override { engine_.ResetAudio(); }
  bool Speaking() override { return engine_.Speaking(); }
  void SetCurrentVoice(std::int32_t number) override { engine_.SetCurrentVoice(number); }
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
  void SetWaveFile(const std::string& path) override;
  void OnEndOfText(std::function<void(const EndOfText&)> handler) override;
  void OnWordHeard(std::function<void(const HeardWord&)> handler) override {
    engine_.OnWordHeard(std::move(handler));
  }

 private:
  void Append(const std::string& path);

  DirectSS& engine_;
  std::string path_;
  std::string rendered_;  // where the next text goes
  std::string underWay_;  // and where the one that is spoken does
  std::string problem_;
  std::unique_ptr<engine::WaveFileWriter> file_;
};

}  // namespace lorelin::cli
