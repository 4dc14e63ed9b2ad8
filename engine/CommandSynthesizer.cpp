#include "engine/CommandSynthesizer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <utility>

#include "base/textEncoding.h"
#include "engine/Resampler.h"
#include "engine/speakableText.h"
#include "engine/timeScale.h"

namespace lorelin::engine {
namespace {

constexpr double kUsualSpeed = 175;  // words a minute
constexpr double kMiddlePitch = 50;
constexpr double kPitchSteps = 100;    // that make an octave
constexpr double kPauseSeconds = 0.2;  // behind a sentence, at least
constexpr float kAudible = 0.01F;
constexpr std::size_t kPassedAtOnce = 2048;

bool IsAudible(float sample) {
  return std::abs(sample) > kAudible;
}

std::size_t SilenceInFront(const std::vector<float>& sound) {
  return static_cast<std::size_t>(std::find_if(sound.begin(), sound.end(), IsAudible) - sound.begin());
}

std::size_t SilenceBehind(const std::vector<float>& sound) {
  return static_cast<std::size_t>(std::find_if(sound.rbegin(), sound.rend(), IsAudible) - sound.rbegin());
}

bool Pass(std::span<const float> sound, float volume, const Synthesizer::Samples& take) {
  std::array<std::int16_t, kPassedAtOnce> samples{};
  while (!sound.empty()) {
    const std::size_t count = std::min(sound.size(), samples.size());
    std::transform(
        sound.begin(), sound.begin() + static_cast<std::ptrdiff_t>(count), samples.begin(),
        [&](float sample) {
          return static_cast<std::int16_t>(std::lround(std::clamp(sample * volume, -1.0F, 1.0F) * 32767));
        });
    if (!take({samples.data(), count})) return false;
    sound = sound.subspan(count);
  }
  return true;
}

// Where its words are in the sound: as the program tells, else by their length.
void MarkWords(std::string_view sentence, const SaidSentence& said, const std::vector<float>& sound,
               double scale, const WordMarker::Take& take) {
  WordMarker marker(sentence);
  for (const auto& word : said.words)
    marker.Event(word.character, static_cast<std::uint64_t>(static_cast<double>(word.sample) * scale), take);
  const std::size_t front = SilenceInFront(sound);
  if (!said.words.empty() || front == sound.size()) return marker.End(sound.size(), take);
  marker.End(sound.size() - SilenceBehind(sound) - front, [&](const WordMark& mark) {
    take({mark.sample + front, mark.begin, mark.end});
  });
}

bool HasWords(std::string_view sentence) {
  bool any = false;
  WordMarker(sentence).End(0, [&](const WordMark&) { any = true; });
  return any;
}

}  // namespace

CommandSynthesizer::CommandSynthesizer(std::vector<CommandVoice> voices, int sampleRate)
    : voices_(std::move(voices)), sampleRate_(sampleRate) {
  utterance_.pitch = static_cast<std::int32_t>(kMiddlePitch);
  utterance_.speed = static_cast<std::int32_t>(kUsualSpeed);
  utterance_.volumeLeft = 100;
}

std::vector<Voice> CommandSynthesizer::Voices() const {
  std::vector<Voice> offered;
  for (const CommandVoice& voice : voices_) offered.push_back(OfferedVoice(voice));
  return offered;
}

void CommandSynthesizer::Apply(std::size_t voice, const Utterance& utterance) {
  if (voice < voices_.size()) voice_ = voice;
  utterance_.pitch = utterance.pitch;
  utterance_.speed = std::max(utterance.speed, 1);
  utterance_.volumeLeft = std::clamp(utterance.volumeLeft, 0, 100);
}

void CommandSynthesizer::Prepare(std::size_t voice) {
  if (voice < voices_.size()) program_.GetReady(voices_[voice], utterance_);
}

// A program that takes too long is ended here, without the engine.
std::chrono::milliseconds CommandSynthesizer::Patience() const {
  constexpr std::chrono::seconds kForTheSound{30};
  return Current().timeout + kForTheSound;
}

bool CommandSynthesizer::Fail() {
  if (!program_.Problem().empty())
    problem_ = "Die Stimme „" + Current().name + "“ lässt sich nicht verwenden: " + program_.Problem() + ".";
  return false;
}

bool CommandSynthesizer::Speak(std::string_view text, const Samples& samples, const WordMarker::Take& words) {
  problem_.clear();
  const float volume =
      Current().Takes(Placeholder::Volume) ? 1 : static_cast<float>(utterance_.volumeLeft) / 100;
  std::uint64_t samplesBefore = 0;
  std::size_t charactersBefore = 0;
  while (!text.empty()) {
    const std::string_view sentence = text.substr(0, NextSentence(text));
    if (HasWords(sentence)) {
      const auto said = program_.Say(Current(), utterance_, sentence);
      if (!said) return Fail();
      double scale = 1;
      auto sound = Shaped(said->sound, scale);
      MarkWords(sentence, *said, sound, scale, [&](const WordMark& mark) {
        words({samplesBefore + mark.sample, charactersBefore + mark.begin, charactersBefore + mark.end});
      });
      sound.resize(sound.size() + Pause(sound));
      if (!Pass(sound, volume, samples)) return false;
      samplesBefore += sound.size();
    }
    charactersBefore += CharacterCount(sentence);
    text.remove_prefix(sentence.size());
  }
  return true;
}

std::vector<float> CommandSynthesizer::Shaped(const Sound& sound, double& scale) const {
  const CommandVoice& voice = Current();
  const bool ownSpeed = voice.Takes(Placeholder::Speed) || voice.Takes(Placeholder::Stretch);
  const double stretch = ownSpeed ? 1 : kUsualSpeed / utterance_.speed;
  const double pitch =
      voice.Takes(Placeholder::Pitch) ? 1 : std::exp2((utterance_.pitch - kMiddlePitch) / kPitchSteps);
  const double rates = static_cast<double>(sampleRate_) / sound.sampleRate;
  scale = rates * stretch;
  auto samples = Resampled(sound.samples, pitch / rates);
  if (pitch == 1 && stretch == 1) return samples;
  const auto size = static_cast<std::size_t>(std::llround(static_cast<double>(sound.samples.size()) * scale));
  return Stretched(samples, size, sampleRate_);
}

// What is missing to a pause behind the sentence.
std::size_t CommandSynthesizer::Pause(const std::vector<float>& sound) const {
  const auto wanted = static_cast<std::size_t>(kPauseSeconds * kUsualSpeed / utterance_.speed * sampleRate_);
  return wanted - std::min(wanted, SilenceBehind(sound));
}

}  // namespace lorelin::engine
