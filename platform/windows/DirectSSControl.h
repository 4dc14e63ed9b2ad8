#pragma once

#include "platform/windows/ComSpeech.h"
#include "platform/windows/dispatch.h"

namespace lorelin {

// The Direct Speech Synthesis control of Microsoft's Speech API 4.0, by its class and the dispatch ids of its
// type library (ACTIVEVOICEPROJECTLib 1.0). It is a 32-bit control; a 64-bit program does not find it.
class DirectSSControl final : public ComSpeech {
 public:
  // Null where the class is not registered or cannot be created.
  [[nodiscard]] static std::unique_ptr<DirectSSControl> Create(EventPump& pump, Log& log);
  ~DirectSSControl() override;

 private:
  DirectSSControl(EventPump& pump, Log& log);

  void CreateEngine() override;
  void DestroyEngine() override;
  void StartText(const engine::Utterance& utterance) override;
  void PauseEngine() override;
  void ResumeEngine() override;
  void StopEngine() override;
  bool HasFinished() override;
  void ApplyProperties(engine::Utterance& properties) override;

  [[nodiscard]] std::int32_t Number(DISPID member, std::vector<Variant> arguments = {}) const;
  void Put(DISPID member, std::int32_t& value) const;
  void OnEvent(DISPID event, const DISPPARAMS& arguments);

  Dispatch control_;
  EventConnection events_;
  engine::Utterance applied_;
  bool processed_ = false;  // the whole text went through the engine
};

}  // namespace lorelin
