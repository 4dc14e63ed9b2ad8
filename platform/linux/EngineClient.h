#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "engine/protocol.h"
#include "platform/common/SpeechInstance.h"
#include "platform/linux/EngineConnection.h"
#include "ports/Clock.h"
#include "ports/EventPump.h"
#include "ports/Log.h"
#include "ports/Platform.h"

namespace lorelin {

// A DirectSS instance in a process of its own, lorelin-engine. The process starts with the object, or when it
// is needed, and ends with it; one that dies or does not answer is replaced, at most 3 times in 2 minutes.
class EngineClient final : public SpeechInstance {
 public:
  struct Options {
    std::string engineFile;
    bool audible = false;  // this instance is going to play: it prepares the sound device
    // Where its sound files are going to be, as the system takes it; an engine that writes them elsewhere
    // has to be started anew.
    std::string folder{};
    // What is wrong with the instance, in German for the status bar, and "" when nothing is any more; on the
    // pump's thread.
    std::function<void(const std::string&)> condition{};
    EngineConnection::Patience patience{};
    InstanceStart start = InstanceStart::AtOnce;
  };

  // Owns none of the references; they must outlive the object.
  EngineClient(Options options, EventPump& pump, Clock& clock, Log& log);
  ~EngineClient() override;

  void Speak(std::string_view text) override { StartText(text, false); }
  void SpeakBeginning(std::string_view text) override { StartText(text, true); }
  void ContinueText(std::string_view text, bool last) override;
  void PauseAudio() override;
  void ResumeAudio() override;
  void ResetAudio() override;
  bool Speaking() override;

  // Starts the process if it is not there yet; does not wait for it.
  void Start() { Connect(); }
  // Has another engine process take the place of this one, once no text is under way: it finds the voices
  // that are there by then.
  void RenewVoices();
  // What the files of the texts that follow are like, and whether their words are told.
  void SetSoundFormat(SoundFormat format, SoundQuality quality, bool tellsWords);

  // For measurements and tests: the engine's process (-1 when there is none), and how long the last text took
  // from Speak to its first samples (zero before that).
  [[nodiscard]] int ProcessId() const;
  [[nodiscard]] std::chrono::microseconds LastStartLatency() const;

 private:
  using Condition = std::function<void(const std::string&)>;

  void Connect();
  void StartText(std::string_view text, bool goesOn);
  [[nodiscard]] const engine::Capabilities& Abilities() override;
  void PropertiesChanged() override;

  const Options options_;
  EventPump& pump_;
  Clock& clock_;
  Log& log_;
  std::shared_ptr<Condition> condition_;          // posted calls find it, if the object still lives
  std::unique_ptr<EngineConnection> connection_;  // none before the process is started
  std::shared_ptr<const engine::Capabilities> abilities_;
  std::int32_t prepared_ = 0;  // the voice that the engine was told of
  std::uint32_t goesOn_ = 0;   // the text of which more is to come
};

}  // namespace lorelin
