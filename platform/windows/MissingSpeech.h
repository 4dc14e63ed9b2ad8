#pragma once

#include <functional>
#include <memory>
#include <string>

#include "ports/DirectSS.h"
#include "ports/EventPump.h"

namespace lorelin {

// Stands for an engine where Windows has none: no voices, and every text ends at once with the reason.
class MissingSpeech final : public DirectSS {
 public:
  static constexpr const char* kReason =
      "Auf diesem Computer ist keine Sprachausgabe eingerichtet. Bitte fügen Sie in den "
      "Windows-Einstellungen unter "
      "„Zeit und Sprache“, „Spracherkennung“ eine Stimme hinzu und starten Sie Lorelin neu.";

  // Does not own the pump.
  explicit MissingSpeech(EventPump& pump) : pump_(pump) {}

  void Speak(std::string_view text) override;
  void SpeakBeginning(std::string_view text) override { Speak(text); }
  void ContinueText(std::string_view, bool) override {}
  void PauseAudio() override {}
  void ResumeAudio() override {}
  void ResetAudio() override {}
  bool Speaking() override { return false; }
  void SetCurrentVoice(std::int32_t) override {}
  std::int32_t VoiceCount() override { return 0; }
  std::string VoiceName(std::int32_t) override { return {}; }
  std::int32_t VoiceLanguage(std::int32_t) override { return 0; }
  std::int32_t VoiceGender(std::int32_t) override { return 0; }
  void SetPitch(std::int32_t) override {}
  std::int32_t Pitch() override { return 0; }
  std::int32_t MinPitch() override { return 0; }
  std::int32_t MaxPitch() override { return 0; }
  void SetSpeed(std::int32_t) override {}
  std::int32_t Speed() override { return 0; }
  std::int32_t MinSpeed() override { return 0; }
  std::int32_t MaxSpeed() override { return 0; }
  void SetVolumeLeft(std::int32_t) override {}
  std::int32_t VolumeLeft() override { return 0; }
  void SetVolumeRight(std::int32_t) override {}
  std::int32_t VolumeRight() override { return 0; }
  std::int32_t MinVolume() override { return 0; }
  std::int32_t MaxVolume() override { return 0; }
  void SetWaveFile(const std::string&) override {}
  void OnEndOfText(std::function<void(const EndOfText&)> handler) override;
  void OnWordHeard(std::function<void(const HeardWord&)>) override {}

 private:
  EventPump& pump_;
  std::shared_ptr<std::function<void(const EndOfText&)>> handler_ =
      std::make_shared<std::function<void(const EndOfText&)>>();
};

}  // namespace lorelin
