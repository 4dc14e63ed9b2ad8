#pragma once

#include "ports/DirectSS.h"

namespace lorelin {

// An instance that produces nothing and follows another one: for a front end that either plays or renders. It
// has the leader's voices and ranges and properties of its own; it speaks as long as the leader does, and
// hands on the leader's end of text.
class SilentVoice final : public DirectSS {
 public:
  // Does not own the leader, which must outlive it.
  explicit SilentVoice(DirectSS& leader) : leader_(leader) {}

  void Speak(std::string_view) override {}
  void SpeakBeginning(std::string_view) override {}
  void ContinueText(std::string_view, bool) override {}
  void PauseAudio() override {}
  void ResumeAudio() override {}
  void ResetAudio() override {}
  bool Speaking() override { return leader_.Speaking(); }
  void SetCurrentVoice(std::int32_t) override {}
  std::int32_t VoiceCount() override { return leader_.VoiceCount(); }
  std::string VoiceName(std::int32_t number) override { return leader_.VoiceName(number); }
  std::int32_t VoiceLanguage(std::int32_t number) override { return leader_.VoiceLanguage(number); }
  std::int32_t VoiceGender(std::int32_t number) override { return leader_.VoiceGender(number); }
  void SetPitch(std::int32_t value) override;
  std::int32_t Pitch() override { return pitch_; }
  std::int32_t MinPitch() override { return leader_.MinPitch(); }
  std::int32_t MaxPitch() override { return leader_.MaxPitch(); }
  void SetSpeed(std::int32_t value) override;
  std::int32_t Speed() override { return speed_; }
  std::int32_t MinSpeed() override { return leader_.MinSpeed(); }
  std::int32_t MaxSpeed() override { return leader_.MaxSpeed(); }
  void SetVolumeLeft(std::int32_t value) override;
  std::int32_t VolumeLeft() override { return volumeLeft_; }
  void SetVolumeRight(std::int32_t value) override;
  std::int32_t VolumeRight() override { return volumeRight_; }
  std::int32_t MinVolume() override { return leader_.MinVolume(); }
  std::int32_t MaxVolume() override { return leader_.MaxVolume(); }
  void SetWaveFile(const std::string&) override {}
  void OnEndOfText(std::function<void(const EndOfText&)> handler) override;
  void OnWordHeard(std::function<void(const HeardWord&)> handler) override {
    leader_.OnWordHeard(std::move(handler));
  }

 private:
  DirectSS& leader_;
  std::int32_t pitch_ = 0;
  std::int32_t speed_ = 0;
  std::int32_t volumeLeft_ = 0;
  std::int32_t volumeRight_ = 0;
};

}  // namespace lorelin
