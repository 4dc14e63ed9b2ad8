#include "platform/common/SpeechInstance.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/paths.h"

namespace lorelin {

using engine::Capabilities;
using engine::Utterance;

void SpeechInstance::SetUsualProperties(const Capabilities& abilities) {
  properties_.pitch = (abilities.pitch.lowest + abilities.pitch.highest) / 2;
  properties_.speed = (abilities.speed.lowest + abilities.speed.highest) / 2;
  properties_.volumeLeft = properties_.volumeRight = abilities.volume.highest;
}

Utterance SpeechInstance::BeginText() {
  Utterance utterance = properties_;
  utterance.id = listener_->current = ++lastId_;
  return utterance;
}

void SpeechInstance::TellEnd(const std::weak_ptr<Listener>& listener, std::uint32_t id,
                             const EndOfText& end) {
  const auto alive = listener.lock();
  if (!alive || alive->current != id) return;
  alive->current = 0;
  const auto handler = alive->endOfText;
  if (handler) handler(end);
}

void SpeechInstance::OnEndOfText(std::function<void(const EndOfText&)> handler) {
  listener_->endOfText = std::move(handler);
}

void SpeechInstance::TellWord(const std::weak_ptr<Listener>& listener, std::uint32_t id,
                              const HeardWord& word) {
  const auto alive = listener.lock();
  if (!alive || alive->current != id) return;
  const auto handler = alive->wordHeard;
  if (handler) handler(word);
}

void SpeechInstance::OnWordHeard(std::function<void(const HeardWord&)> handler) {
  listener_->wordHeard = std::move(handler);
}

const engine::Voice* SpeechInstance::VoiceWith(std::int32_t number) {
  const auto& voices = Abilities().voices;
  if (number < 1 || static_cast<std::size_t>(number) > voices.size()) return nullptr;
  return &voices[static_cast<std::size_t>(number) - 1];
}

void SpeechInstance::SetCurrentVoice(std::int32_t number) {
  if (VoiceWith(number) == nullptr) return;
  properties_.voice = number;
  PropertiesChanged();
}

std::int32_t SpeechInstance::VoiceCount() {
  return static_cast<std::int32_t>(Abilities().voices.size());
}
std::string SpeechInstance::VoiceName(std::int32_t number) {
  const auto* const voice = VoiceWith(number);
  return voice != nullptr ? voice->name : std::string();
}
std::int32_t SpeechInstance::VoiceLanguage(std::int32_t number) {
  const auto* const voice = VoiceWith(number);
  return voice != nullptr ? voice->languageId : 0;
}
std::int32_t SpeechInstance::VoiceGender(std::int32_t number) {
  const auto* const voice = VoiceWith(number);
  return voice != nullptr ? voice->gender : 0;
}

void SpeechInstance::Set(std::int32_t Utterance::*property, std::int32_t value,
                         engine::Range Capabilities::*range) {
  const engine::Range& bounds = Abilities().*range;
  properties_.*property = std::clamp(value, bounds.lowest, bounds.highest);
  PropertiesChanged();
}

std::int32_t SpeechInstance::Value(std::int32_t Utterance::*property) {
  (void)Abilities();
  return properties_.*property;
}

void SpeechInstance::SetPitch(std::int32_t value) {
  Set(&Utterance::pitch, value, &Capabilities::pitch);
}
std::int32_t SpeechInstance::Pitch() {
  return Value(&Utterance::pitch);
}
std::int32_t SpeechInstance::MinPitch() {
  return Abilities().pitch.lowest;
}
std::int32_t SpeechInstance::MaxPitch() {
  return Abilities().pitch.highest;
}
void SpeechInstance::SetSpeed(std::int32_t value) {
  Set(&Utterance::speed, value, &Capabilities::speed);
}
std::int32_t SpeechInstance::Speed() {
  return Value(&Utterance::speed);
}
std::int32_t SpeechInstance::MinSpeed() {
  return Abilities().speed.lowest;
}
std::int32_t SpeechInstance::MaxSpeed() {
  return Abilities().speed.highest;
}
void SpeechInstance::SetVolumeLeft(std::int32_t value) {
  Set(&Utterance::volumeLeft, value, &Capabilities::volume);
}
std::int32_t SpeechInstance::VolumeLeft() {
  return Value(&Utterance::volumeLeft);
}
void SpeechInstance::SetVolumeRight(std::int32_t value) {
  Set(&Utterance::volumeRight, value, &Capabilities::volume);
}
std::int32_t SpeechInstance::VolumeRight() {
  return Value(&Utterance::volumeRight);
}
std::int32_t SpeechInstance::MinVolume() {
  return Abilities().volume.lowest;
}
std::int32_t SpeechInstance::MaxVolume() {
  return Abilities().volume.highest;
}

void SpeechInstance::SetWaveFile(const std::string& path) {
  std::error_code error;
  const auto absolute = std::filesystem::absolute(NativePath(path), error);
  properties_.waveFile = path.empty() || error ? path : PathText(absolute);
}

}  // namespace lorelin
