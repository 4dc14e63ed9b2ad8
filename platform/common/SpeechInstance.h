#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "engine/protocol.h"
#include "ports/DirectSS.h"

namespace lorelin {

// What every engine instance has in common: voices and ranges as the engine told them, properties that are
// kept within them and hold for the next text, and one end for every text that was not discarded.
class SpeechInstance : public DirectSS {
 public:
  void SetCurrentVoice(std::int32_t number) final;
  std::int32_t VoiceCount() final;
  std::string VoiceName(std::int32_t number) final;
  std::int32_t VoiceLanguage(std::int32_t number) final;
  std::int32_t VoiceGender(std::int32_t number) final;
  void SetPitch(std::int32_t value) final;
  std::int32_t Pitch() final;
  std::int32_t MinPitch() final;
  std::int32_t MaxPitch() final;
  void SetSpeed(std::int32_t value) final;
  std::int32_t Speed() final;
  std::int32_t MinSpeed() final;
  std::int32_t MaxSpeed() final;
  void SetVolumeLeft(std::int32_t value) final;
  std::int32_t VolumeLeft() final;
  void SetVolumeRight(std::int32_t value) final;
  std::int32_t VolumeRight() final;
  std::int32_t MinVolume() final;
  std::int32_t MaxVolume() final;
  void SetWaveFile(const std::string& path) final;
  void OnEndOfText(std::function<void(const EndOfText&)> handler) final;
  void OnWordHeard(std::function<void(const HeardWord&)> handler) final;

 protected:
  // What posted calls find, if the object still lives.
  struct Listener {
    std::function<void(const EndOfText&)> endOfText;
    std::function<void(const HeardWord&)> wordHeard;
    std::uint32_t current = 0;  // the text whose end may be told
  };

  SpeechInstance() : listener_(std::make_shared<Listener>()) {}

  // What the engine can do; makes the engine when there is none. May throw RuntimeError.
  [[nodiscard]] virtual const engine::Capabilities& Abilities() = 0;
  // A property was set within its range. May throw RuntimeError.
  virtual void PropertiesChanged() {}

  // Until one is set: the middle of the ranges, full volume.
  void SetUsualProperties(const engine::Capabilities& abilities);
  // A text with the properties as they are now; its end may be told from now on, no earlier one's.
  [[nodiscard]] engine::Utterance BeginText();
  // The end of the current text is not told any more.
  void DiscardText() { listener_->current = 0; }
  [[nodiscard]] std::uint32_t CurrentText() const { return listener_->current; }
  // For a task posted to the user-interface thread: tells the end of text `id`, once, if it is still the
  // current one.
  static void TellEnd(const std::weak_ptr<Listener>& listener, std::uint32_t id, const EndOfText& end);
  // The same for a word of the text.
  static void TellWord(const std::weak_ptr<Listener>& listener, std::uint32_t id, const HeardWord& word);

  [[nodiscard]] std::weak_ptr<Listener> ListenerForTasks() const { return listener_; }

  engine::Utterance properties_;  // that the next text is spoken with

 private:
  [[nodiscard]] const engine::Voice* VoiceWith(std::int32_t number);
  void Set(std::int32_t engine::Utterance::*property, std::int32_t value,
           engine::Range engine::Capabilities::*range);
  std::int32_t Value(std::int32_t engine::Utterance::*property);

  std::shared_ptr<Listener> listener_;
  std::uint32_t lastId_ = 0;
};

}  // namespace lorelin
