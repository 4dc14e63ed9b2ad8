#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "engine/protocol.h"
#include "platform/common/SpeechInstance.h"
#include "platform/windows/HeardWords.h"
#include "ports/EventPump.h"
#include "ports/Log.h"

namespace lorelin {

// What the engines of Windows have in common: properties that survive an engine that is made anew, and wave
// files that are complete or gone. An engine whose object fails is let go; the next text gets a new one.
class ComSpeech : public SpeechInstance {
 public:
  ~ComSpeech() override;
  ComSpeech(const ComSpeech&) = delete;
  ComSpeech& operator=(const ComSpeech&) = delete;

  void Speak(std::string_view text) final { Start(text, false); }
  void SpeakBeginning(std::string_view text) final { Start(text, true); }
  void ContinueText(std::string_view text, bool last) final;
  void PauseAudio() final;
  void ResumeAudio() final;
  void ResetAudio() final;
  bool Speaking() final;

 protected:
  // Owns none of the references; they must outlive the object. All calls come from one apartment.
  // `units` is how it counts in a text when it tells of words.
  ComSpeech(EventPump& pump, Log& log, HeardWords::Units units);

  // The engine as an object. Each may throw ComError.
  virtual void CreateEngine() = 0;  // and asks it for what Abilities() is to tell
  virtual void DestroyEngine() = 0;
  virtual void StartText(const engine::Utterance& utterance) = 0;
  // Whether the engine speaks what it is given behind what it has; else it gets a text whole.
  [[nodiscard]] virtual bool TakesParts() const { return false; }
  // More of the text that was started.
  virtual void AddText(const engine::Utterance&) {}
  virtual void PauseEngine() = 0;
  virtual void ResumeEngine() = 0;
  virtual void StopEngine() = 0;
  // Whether the text that was started has been processed, as far as the engine tells without an event.
  virtual bool HasFinished() = 0;
  // Lets go of the file that was written.
  virtual void CloseWaveFile() {}
  // Sets the property that has changed in `properties`, and writes back what the engine made of it.
  virtual void ApplyProperties(engine::Utterance& properties) = 0;

  // The engine told that a word begins to be heard, at this unit of what it was given by StartText (0) or by
  // AddText (1 and on). Ignored for a text that is rendered.
  void WordAt(std::size_t go, std::size_t unit);
  // The engine told that it has finished; ignored unless a text is under way.
  void Finished();
  void SetAbilities(engine::Capabilities abilities) { abilities_ = std::move(abilities); }
  [[nodiscard]] const engine::Utterance& Properties() const { return properties_; }

  EventPump& pump_;
  Log& log_;

 private:
  [[nodiscard]] const engine::Capabilities& Abilities() override;
  void PropertiesChanged() override;
  void RequireEngine();
  void Start(std::string_view text, bool goesOn);
  void HandOver(std::string_view text);
  // Runs `work` on the engine; one that fails is let go and the reason kept for the user.
  bool Try(const std::function<void()>& work);
  void End(const std::string& reason);
  [[nodiscard]] bool PutWaveFileInPlace() const;
  void RemoveWaveFile() const;

  engine::Capabilities abilities_;
  bool created_ = false;
  bool speaking_ = false;
  bool goesOn_ = false;         // parts of the text are still to come
  bool handedOver_ = false;     // the engine has something of the text
  bool caughtUp_ = true;        // it has finished with all that it has
  engine::Utterance underWay_;  // its text is what the engine is given
  std::string awaited_;         // what it is still to be given
  HeardWords words_;
  bool paused_ = false;
  std::string renderedFile_;  // of the text that is under way; "" when it is heard
};

}  // namespace lorelin
