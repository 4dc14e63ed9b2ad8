#pragma once

#include "platform/windows/ComSpeech.h"
#include "platform/windows/dispatch.h"

namespace lorelin {

// The Speech API 5 of Windows by automation (`SAPI.SpVoice`, `SAPI.SpFileStream`; Microsoft Speech API 5.3,
// automation interfaces). The one volume follows the left channel's.
class SapiVoice final : public ComSpeech {
 public:
  // Null where the class cannot be created or has no voices.
  [[nodiscard]] static std::unique_ptr<SapiVoice> Create(EventPump& pump, Log& log);
  ~SapiVoice() override;

 private:
  SapiVoice(EventPump& pump, Log& log);

  void CreateEngine() override;
  void DestroyEngine() override;
  void StartText(const engine::Utterance& utterance) override;
  [[nodiscard]] bool TakesParts() const override { return true; }
  void AddText(const engine::Utterance& utterance) override;
  void PauseEngine() override;
  void ResumeEngine() override;
  void StopEngine() override;
  bool HasFinished() override;
  void CloseWaveFile() override;
  void ApplyProperties(engine::Utterance& properties) override;

  void ListVoices();
  void OnEvent(DISPID event, const DISPPARAMS& arguments);
  void OnWord(std::int32_t stream, std::int32_t place);

  Dispatch voice_;
  Dispatch file_;
  std::vector<Dispatch> tokens_;  // of the voices, in the order of their numbers
  EventConnection events_;
  engine::Utterance applied_;
  std::int32_t stream_ = 0;            // of the text that is under way, its last part
  std::vector<std::int32_t> streams_;  // of all its parts
  std::int32_t markupFront_ = 0;       // units in front of their texts
  bool rendering_ = false;
};

// The text with its pitch as SAPI's XML ([MS-SAPI], XML TTS tutorial); `pitch` from -10 to 10.
[[nodiscard]] std::string SapiMarkup(std::string_view text, std::int32_t pitch);

// The order in which voices with these Windows language ids are offered: German ones first. A single German
// voice comes second, where the program looks for its voice when none has been chosen.
[[nodiscard]] std::vector<std::size_t> VoiceOrder(const std::vector<std::int32_t>& languages);

}  // namespace lorelin
