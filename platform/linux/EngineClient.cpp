#include "platform/linux/EngineClient.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/paths.h"

namespace lorelin {
namespace {

std::string AbsolutePath(const std::string& path) {
  std::error_code error;
  const auto absolute = std::filesystem::absolute(NativePath(path), error);
  return error ? path : PathText(absolute);
}

std::int32_t Clamped(std::int32_t value, const engine::Range& range) {
  return std::clamp(value, range.lowest, range.highest);
}

}  // namespace

EngineClient::EngineClient(const Options& options, EventPump& pump, Clock& clock, Log& log)
    : listener_(std::make_shared<Listener>()) {
  listener_->notice = options.notice;
  const std::weak_ptr<Listener> listener = listener_;
  connection_ = std::make_unique<EngineConnection>(
      options.engineFile, options.audible, options.patience,
      EngineConnection::Handlers{.ended =
                                     [listener, &pump](std::uint32_t id, const std::string& reason) {
                                       pump.Post([listener, id, reason] { TellEnd(listener, id, reason); });
                                     },
                                 .notice =
                                     [listener, &pump](const std::string& text) {
                                       pump.Post([listener, text] {
                                         const auto alive = listener.lock();
                                         if (alive && alive->notice) alive->notice(text);
                                       });
                                     }},
      clock, log);
}

EngineClient::~EngineClient() = default;

// A text that was discarded or followed by another before its end was told has none.
void EngineClient::TellEnd(const std::weak_ptr<Listener>& listener, std::uint32_t id,
                           const std::string& reason) {
  const auto alive = listener.lock();
  if (!alive || alive->current != id) return;
  alive->current = 0;
  const auto handler = alive->endOfText;
  if (handler) handler({.complete = reason.empty(), .reason = reason});
}

const engine::Capabilities& EngineClient::Abilities() {
  if (abilities_ == nullptr) {
    abilities_ = &connection_->WaitForCapabilities();
    next_.pitch = (abilities_->pitch.lowest + abilities_->pitch.highest) / 2;
    next_.speed = (abilities_->speed.lowest + abilities_->speed.highest) / 2;
    next_.volumeLeft = next_.volumeRight = abilities_->volume.highest;
  }
  return *abilities_;
}

const engine::Voice* EngineClient::VoiceWith(std::int32_t number) {
  const auto& voices = Abilities().voices;
  if (number < 1 || static_cast<std::size_t>(number) > voices.size()) return nullptr;
  return &voices[static_cast<std::size_t>(number) - 1];
}

void EngineClient::Speak(std::string_view text) {
  (void)Abilities();
  engine::Utterance utterance = next_;
  utterance.id = listener_->current = ++lastId_;
  utterance.text = text;
  connection_->Speak(utterance);
}

void EngineClient::PauseAudio() {
  connection_->Pause();
}
void EngineClient::ResumeAudio() {
  connection_->Resume();
}

void EngineClient::ResetAudio() {
  // A text that had ended already was not discarded; its end is still told.
  if (connection_->Reset()) listener_->current = 0;
}

bool EngineClient::Speaking() {
  return connection_->Speaking();
}

void EngineClient::SetCurrentVoice(std::int32_t number) {
  if (VoiceWith(number) != nullptr) next_.voice = number;
}

std::int32_t EngineClient::VoiceCount() {
  return static_cast<std::int32_t>(Abilities().voices.size());
}

std::string EngineClient::VoiceName(std::int32_t number) {
  const auto* const voice = VoiceWith(number);
  return voice != nullptr ? voice->name : std::string();
}

std::int32_t EngineClient::VoiceLanguage(std::int32_t number) {
  const auto* const voice = VoiceWith(number);
  return voice != nullptr ? voice->languageId : 0;
}

std::int32_t EngineClient::VoiceGender(std::int32_t number) {
  const auto* const voice = VoiceWith(number);
  return voice != nullptr ? voice->gender : 0;
}

void EngineClient::SetPitch(std::int32_t value) {
  next_.pitch = Clamped(value, Abilities().pitch);
}
std::int32_t EngineClient::Pitch() {
  return (void)Abilities(), next_.pitch;
}
std::int32_t EngineClient::MinPitch() {
  return Abilities().pitch.lowest;
}
std::int32_t EngineClient::MaxPitch() {
  return Abilities().pitch.highest;
}

void EngineClient::SetSpeed(std::int32_t value) {
  next_.speed = Clamped(value, Abilities().speed);
}
std::int32_t EngineClient::Speed() {
  return (void)Abilities(), next_.speed;
}
std::int32_t EngineClient::MinSpeed() {
  return Abilities().speed.lowest;
}
std::int32_t EngineClient::MaxSpeed() {
  return Abilities().speed.highest;
}

void EngineClient::SetVolumeLeft(std::int32_t value) {
  next_.volumeLeft = Clamped(value, Abilities().volume);
}
std::int32_t EngineClient::VolumeLeft() {
  return (void)Abilities(), next_.volumeLeft;
}
void EngineClient::SetVolumeRight(std::int32_t value) {
  next_.volumeRight = Clamped(value, Abilities().volume);
}
std::int32_t EngineClient::VolumeRight() {
  return (void)Abilities(), next_.volumeRight;
}
std::int32_t EngineClient::MinVolume() {
  return Abilities().volume.lowest;
}
std::int32_t EngineClient::MaxVolume() {
  return Abilities().volume.highest;
}

void EngineClient::SetWaveFile(const std::string& path) {
  next_.waveFile = path.empty() ? path : AbsolutePath(path);
}

void EngineClient::OnEndOfText(std::function<void(const EndOfText&)> handler) {
  listener_->endOfText = std::move(handler);
}

int EngineClient::ProcessId() const {
  return connection_->ProcessId();
}
std::chrono::microseconds EngineClient::LastStartLatency() const {
  return connection_->LastStartLatency();
}

}  // namespace lorelin
