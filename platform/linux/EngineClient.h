#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "engine/protocol.h"
#include "platform/linux/EngineConnection.h"
#include "ports/Clock.h"
#include "ports/DirectSS.h"
#include "ports/EventPump.h"
#include "ports/Log.h"

namespace lorelin {

// A DirectSS instance in a process of its own, lorelin-engine. The process starts with the object and ends
// with it; one that dies or does not answer is replaced, at most 3 times in 2 minutes.
class EngineClient final : public DirectSS {
 public:
  struct Options {
    std::string engineFile;
    bool audible = false;  // this instance is going to play: it prepares the sound device
    std::function<void(const std::string&)>
        notice;  // German sentences for the status bar, on the pump's thread
    // How long an engine with a text may leave a question unanswered.
    std::chrono::milliseconds patience{2000};
  };

  // Owns none of the references; they must outlive the object.
  EngineClient(const Options& options, EventPump& pump, Clock& clock, Log& log);
  ~EngineClient() override;

  void Speak(std::string_view text) override;
  void PauseAudio() override;
  void ResumeAudio() override;
  void ResetAudio() override;
  bool Speaking() override;
  void SetCurrentVoice(std::int32_t number) override;
  std::int32_t VoiceCount() override;
  std::string VoiceName(std::int32_t number) override;
  std::int32_t VoiceLanguage(std::int32_t number) override;
  std::int32_t VoiceGender(std::int32_t number) override;
  void SetPitch(std::int32_t value) override;
  std::int32_t Pitch() override;
  std::int32_t MinPitch() override;
  std::int32_t MaxPitch() override;
  void SetSpeed(std::int32_t value) override;
  std::int32_t Speed() override;
  std::int32_t MinSpeed() override;
  std::int32_t MaxSpeed() override;
  void SetVolumeLeft(std::int32_t value) override;
  std::int32_t VolumeLeft() override;
  void SetVolumeRight(std::int32_t value) override;
  std::int32_t VolumeRight() override;
  std::int32_t MinVolume() override;
  std::int32_t MaxVolume() override;
  void SetWaveFile(const std::string& path) override;
  void OnEndOfText(std::function<void(const EndOfText&)> handler) override;

  // For measurements and tests: the engine's process (-1 when there is none), and how long the last text took
  // from Speak to its first samples (zero before that).
  [[nodiscard]] int ProcessId() const;
  [[nodiscard]] std::chrono::microseconds LastStartLatency() const;

 private:
  // What posted calls find, if the object still lives.
  struct Listener {
    std::function<void(const EndOfText&)> endOfText;
    std::function<void(const std::string&)> notice;
    std::uint32_t current = 0;  // the text whose end may be told
  };

  static void TellEnd(const std::weak_ptr<Listener>& listener, std::uint32_t id, const std::string& reason);
  [[nodiscard]] const engine::Capabilities& Abilities();
  [[nodiscard]] const engine::Voice* VoiceWith(std::int32_t number);

  std::shared_ptr<Listener> listener_;
  std::unique_ptr<EngineConnection> connection_;
  const engine::Capabilities* abilities_ = nullptr;
  engine::Utterance next_;  // the properties that the next text is spoken with
  std::uint32_t lastId_ = 0;
};

}  // namespace lorelin
