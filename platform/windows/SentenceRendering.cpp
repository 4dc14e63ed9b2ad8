#include "platform/windows/SentenceRendering.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <system_error>
#include <utility>
#include <vector>

#include "base/paths.h"
#include "base/textEncoding.h"
#include "base/unfinishedName.h"
#include "engine/EncodingQueue.h"
#include "engine/Resampler.h"
#include "engine/SoundFileWriter.h"
#include "engine/WaveFileWriter.h"
#include "engine/speakableText.h"

namespace lorelin {
namespace {

constexpr const char* kNoSound = "Die Sprachausgabe hat keine WAV-Datei geschrieben.";
constexpr std::uint32_t kUsualRate = 22050;
constexpr float kAudible = 1.0F / 256;
constexpr float kFullLoudness = 32768;

std::unique_ptr<engine::SampleSink> MakeFile(const engine::Utterance& utterance, std::uint32_t sampleRate) {
  if (utterance.format == SoundFormat::Wav) {
    return std::make_unique<engine::WaveFileWriter>(utterance.waveFile, sampleRate);
  }
  return std::make_unique<engine::EncodingQueue>(std::make_unique<engine::SoundFileWriter>(
      utterance.waveFile, sampleRate, utterance.format, utterance.quality));
}

std::vector<std::int16_t> WholeSamples(std::span<const float> samples) {
  std::vector<std::int16_t> whole(samples.size());
  std::ranges::transform(samples, whole.begin(), [](float sample) {
    return static_cast<std::int16_t>(std::clamp(std::lround(sample * kFullLoudness), -32768L, 32767L));
  });
  return whole;
}

bool IsAudible(float sample) {
  return std::abs(sample) > kAudible;
}

// Without the silence that engines put around what they speak; all of it when there is nothing else.
std::span<const float> AudibleOf(std::span<const float> samples) {
  const auto first = std::find_if(samples.begin(), samples.end(), &IsAudible);
  if (first == samples.end()) return samples;
  const auto behind = std::find_if(samples.rbegin(), samples.rend(), &IsAudible).base();
  return {first, behind};
}

}  // namespace

// Beside the file, where there is room for it.
std::string SentenceRendering::ScratchFileFor(const std::string& file) {
  return PathText(UnfinishedName(NativePath(file + ".wav")));
}

SentenceRendering::SentenceRendering(DirectSS& engine, const engine::Utterance& utterance, Handlers handlers)
    : engine_(engine),
      utterance_(utterance),
      handlers_(std::move(handlers)),
      scratchFile_(ScratchFileFor(utterance.waveFile)) {
  engine_.OnEndOfText([this](const EndOfText& end) { ended_ = end; });
}

SentenceRendering::~SentenceRendering() {
  engine_.OnEndOfText({});
  if (underWay_) engine_.ResetAudio();
  std::error_code error;
  std::filesystem::remove(NativePath(scratchFile_), error);
}

void SentenceRendering::Add(std::string_view text, bool last) {
  text_.erase(0, std::exchange(next_, 0));
  text_ += text;
  complete_ = last;
}

void SentenceRendering::Turn() {
  if (over_) return;
  try {
    GoOn();
  } catch (const std::exception& error) {
    End(error.what());
  }
}

void SentenceRendering::GoOn() {
  if (!prepared_) ApplyProperties();
  if (underWay_) (void)engine_.Speaking();  // not every engine tells its end before it is asked
  if (underWay_ && ended_) TakeSentence(*std::exchange(ended_, std::nullopt));
  if (!underWay_ && !over_) RenderNext();
}

void SentenceRendering::ApplyProperties() {
  engine_.SetCurrentVoice(utterance_.voice);
  engine_.SetPitch(utterance_.pitch);
  engine_.SetSpeed(utterance_.speed);
  engine_.SetVolumeLeft(utterance_.volumeLeft);
  engine_.SetVolumeRight(utterance_.volumeRight);
  prepared_ = true;
}

// What stands at the end may still go on.
void SentenceRendering::RenderNext() {
  const std::string_view rest = std::string_view(text_).substr(next_);
  const std::size_t size = engine::NextSentence(rest);
  if (size == rest.size() && !complete_) return;
  if (size == 0) return Finish();
  sentence_ = rest.substr(0, size);
  next_ += size;
  ended_.reset();
  engine_.SetWaveFile(scratchFile_);
  underWay_ = true;
  engine_.Speak(sentence_);
}

void SentenceRendering::TakeSentence(const EndOfText& end) {
  underWay_ = false;
  if (!end.complete) return End(end.reason);
  const std::optional<engine::Sound> sound = TakeSound();
  if (!sound) return End(kNoSound);
  Append(*sound);
  characters_ += CharacterCount(sentence_);
}

// Of blanks no file is made.
std::optional<engine::Sound> SentenceRendering::TakeSound() {
  const std::filesystem::path path = NativePath(scratchFile_);
  std::ifstream file(path, std::ios::binary);
  if (!file) return engine::Sound{};
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  file.close();
  std::error_code error;
  std::filesystem::remove(path, error);
  return engine::ReadWave(bytes);
}

void SentenceRendering::Append(const engine::Sound& sound) {
  if (sound.samples.empty()) return;
  const auto rate = static_cast<std::uint32_t>(sound.sampleRate);
  if (!file_) OpenFile(rate);
  const std::vector<float> samples =
      rate == sampleRate_ ? sound.samples
                          : engine::Resampled(sound.samples, static_cast<double>(rate) / sampleRate_);
  TellWords(samples);
  samples_ += samples.size();
  if (!file_->Write(WholeSamples(samples))) End(file_->Problem());
}

void SentenceRendering::TellWords(std::span<const float> samples) {
  const std::span<const float> audible = AudibleOf(samples);
  const std::uint64_t begin = samples_ + static_cast<std::uint64_t>(audible.data() - samples.data());
  const engine::DroppedCharacters dropped(sentence_);
  const auto place = [&](std::size_t character) { return characters_ + dropped.Given(character); };
  engine::WordMarker(engine::SpeakableText(sentence_)).End(audible.size(), [&](const engine::WordMark& mark) {
    handlers_.word({place(mark.begin), place(mark.end - 1) + 1, TimeOf(begin + mark.sample)});
  });
}

void SentenceRendering::OpenFile(std::uint32_t sampleRate) {
  sampleRate_ = sampleRate;
  file_ = MakeFile(utterance_, sampleRate);
}

void SentenceRendering::Finish() {
  if (!file_) OpenFile(kUsualRate);
  End(file_->Finish() ? "" : file_->Problem());
}

void SentenceRendering::End(const std::string& problem) {
  over_ = true;
  file_.reset();
  handlers_.end({.complete = problem.empty(), .reason = problem, .length = TimeOf(samples_)});
}

std::chrono::milliseconds SentenceRendering::TimeOf(std::uint64_t sample) const {
  return std::chrono::milliseconds(sampleRate_ == 0 ? 0 : sample * 1000 / sampleRate_);
}

}  // namespace lorelin
