#pragma once

#include <string>
#include <vector>

#include "ports/DirectSS.h"
#include "tests/support/CallLog.h"

namespace lorelin {

// A deterministic engine instance: it speaks until it is told to finish. Every call goes to the log under its
// name.
class FakeDirectSS final : public DirectSS {
 public:
  struct Voice {
    std::string name;
    std::int32_t language = 1031;
    std::int32_t gender = 1;
  };
  struct Range {
    std::int32_t lowest = 0;
    std::int32_t highest = 100;
  };

  FakeDirectSS(std::string name, CallLog& log) : name_(std::move(name)), log_(log) {}
  ~FakeDirectSS() override { Log("gone"); }

  void Speak(std::string_view text) override;
  void SpeakBeginning(std::string_view text) override;
  void ContinueText(std::string_view text, bool last) override;
  void PauseAudio() override { Log("PauseAudio"); }
  void ResumeAudio() override { Log("ResumeAudio"); }
  void ResetAudio() override;
  bool Speaking() override { return speaking_; }
  void SetCurrentVoice(std::int32_t number) override;
  std::int32_t VoiceCount() override { return static_cast<std::int32_t>(voices.size()); }
  std::string VoiceName(std::int32_t number) override { return At(number).name; }
  std::int32_t VoiceLanguage(std::int32_t number) override { return At(number).language; }
  std::int32_t VoiceGender(std::int32_t number) override { return At(number).gender; }
  void SetPitch(std::int32_t value) override;
  std::int32_t Pitch() override { return pitch_; }
  std::int32_t MinPitch() override { return pitchRange.lowest; }
  std::int32_t MaxPitch() override { return pitchRange.highest; }
  void SetSpeed(std::int32_t value) override;
  std::int32_t Speed() override { return speed_; }
  std::int32_t MinSpeed() override { return speedRange.lowest; }
  std::int32_t MaxSpeed() override { return speedRange.highest; }
  void SetVolumeLeft(std::int32_t value) override;
  std::int32_t VolumeLeft() override { return volumeLeft_; }
  void SetVolumeRight(std::int32_t value) override;
  std::int32_t VolumeRight() override { return volumeRight_; }
  std::int32_t MinVolume() override { return volumeRange.lowest; }
  std::int32_t MaxVolume() override { return volumeRange.highest; }
  void SetWaveFile(const std::string& path) override;
  void OnEndOfText(std::function<void(const EndOfText&)> handler) override { handler_ = std::move(handler); }
  void OnWordHeard(std::function<void(const HeardWord&)> handler) override { heard_ = std::move(handler); }

  // The word begins to be heard.
  void Hear(const HeardWord& word) {
    if (speaking_ && heard_) heard_(word);
  }
  // The text ends, completely or not, and the notification is given.
  void Finish(const EndOfText& end = {});
  // All parts that have come; `AwaitsMore` until the last one has.
  [[nodiscard]] const std::string& SpokenText() const { return text_; }
  [[nodiscard]] bool AwaitsMore() const { return goesOn_; }
  [[nodiscard]] std::int32_t CurrentVoice() const { return voice_; }
  [[nodiscard]] const std::string& WaveFile() const { return waveFile_; }

  std::vector<Voice> voices{{"Deutsch", 1031, 1}, {"Deutsch (weiblich)", 1031, 2}, {"Englisch", 1033, 1}};
  std::string renderedTo;  // the file of the last text that was spoken
  Range pitchRange;
  Range speedRange;
  Range volumeRange;

 private:
  void Log(const std::string& call) { log_.Add(name_ + "." + call); }
  [[nodiscard]] Voice At(std::int32_t number) const;
  [[nodiscard]] bool Has(std::int32_t number) const;

  std::string name_;
  CallLog& log_;
  std::function<void(const EndOfText&)> handler_;
  std::function<void(const HeardWord&)> heard_;
  std::string text_;
  std::string waveFile_;
  bool speaking_ = false;
  bool goesOn_ = false;
  std::int32_t voice_ = 1;
  std::int32_t pitch_ = 0;
  std::int32_t speed_ = 0;
  std::int32_t volumeLeft_ = 0;
  std::int32_t volumeRight_ = 0;
};

}  // namespace lorelin
