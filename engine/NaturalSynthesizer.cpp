#include "engine/NaturalSynthesizer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "base/paths.h"
#include "base/textEncoding.h"
#include "engine/Resampler.h"
#include "engine/modelPatch.h"
#include "engine/speakableText.h"
#include "engine/timeScale.h"

namespace lorelin::engine {
namespace {

constexpr std::uintmax_t kLargestModel = std::uintmax_t{512} << 20U;
constexpr std::size_t kMostModels = 2;  // in memory
constexpr double kUsualSpeed = 175;     // words a minute
constexpr double kMiddlePitch = 50;
constexpr double kPitchSteps = 100;    // that make an octave
constexpr double kPauseSeconds = 0.2;  // behind a sentence
constexpr double kLongestRunSeconds = 600;
constexpr std::size_t kPassedAtOnce = 2048;
// What is computed must be there before what sounds has ended: no run is longer than so many times the one
// before.
constexpr std::size_t kGrowth = 2;

// How far durations may be from what they are because of how they are computed.
constexpr double kRounding = 0.001;
// A length that is so near to the right one is left as it is.
constexpr double kNearEnough = 0.005;

bool AreDurations(std::span<const float> durations, std::size_t symbols) {
  return durations.size() == symbols && std::all_of(durations.begin(), durations.end(), [](float duration) {
           return std::isfinite(duration) && duration >= 0;
         });
}

// The sample that each symbol begins with, by how long the symbols are in the model's own frames, of which it
// makes whole ones; none when that does not fit the samples.
std::vector<std::uint64_t> SymbolStarts(std::span<const float> durations, std::size_t symbols,
                                        std::size_t samples) {
  if (!AreDurations(durations, symbols)) return {};
  double frames = 0;
  for (const float duration : durations) frames += std::ceil(duration);
  if (frames < 1) return {};
  const double hop = static_cast<double>(samples) / frames;
  if (std::abs(hop - std::round(hop)) > 1e-6) return {};
  std::vector<std::uint64_t> starts;
  double frame = 0;
  for (const float duration : durations) {
    starts.push_back(static_cast<std::uint64_t>(frame * hop));
    frame += std::ceil(duration);
  }
  return starts;
}

// How many times as long the symbols were if their durations had not been made so many times as long before
// they became whole frames, against what that has made of them.
double Excess(std::span<const float> durations, double longer) {
  double frames = 0;
  double usual = 0;
  for (const float duration : durations) {
    frames += std::ceil(duration);
    usual += std::ceil(duration / longer - kRounding);
  }
  return frames < 1 || usual < 1 ? 1 : usual * longer / frames;
}

}  // namespace

// A piece of a text on its way.
class NaturalSynthesizer::Piece {
 public:
  Piece(std::string_view text, const Samples& samples, WordMarker::Take words, float volume)
      : marker_(text), samples_(samples), words_(std::move(words)), volume_(volume) {}

  [[nodiscard]] std::uint64_t Taken() const { return taken_; }
  void Word(std::size_t character, std::uint64_t sample) {
    marker_.Event(character, taken_ + sample, words_);
  }
  void End() { marker_.End(taken_, words_); }

  bool Pass(std::span<const float> sound) {
    std::array<std::int16_t, kPassedAtOnce> samples{};
    while (!sound.empty()) {
      const std::size_t count = std::min(sound.size(), samples.size());
      std::transform(sound.begin(), sound.begin() + static_cast<std::ptrdiff_t>(count), samples.begin(),
                     [this](float sample) { return Sample(sample); });
      taken_ += count;
      if (!samples_({samples.data(), count})) return false;
      sound = sound.subspan(count);
    }
    return true;
  }

 private:
  [[nodiscard]] std::int16_t Sample(float sample) const {
    return static_cast<std::int16_t>(std::lround(std::clamp(sample * volume_, -1.0F, 1.0F) * 32767));
  }

  WordMarker marker_;
  const Samples& samples_;
  WordMarker::Take words_;
  const float volume_;
  std::uint64_t taken_ = 0;
};

NaturalSynthesizer::NaturalSynthesizer(EspeakLibrary& library, std::filesystem::path runtime,
                                       std::vector<NaturalVoice> voices)
    : library_(library), runtimeFile_(std::move(runtime)), voices_(std::move(voices)) {
  for (std::size_t voice = 0; voice < voices_.size(); ++voice) {
    for (std::size_t speaker = 0; speaker < voices_[voice].speakers.size(); ++speaker)
      choices_.push_back({voice, speaker});
  }
}

NaturalSynthesizer::~NaturalSynthesizer() = default;

std::vector<Voice> NaturalSynthesizer::Voices() const {
  std::vector<Voice> offered;
  for (const NaturalVoice& voice : voices_) {
    for (Voice& one : OfferedVoices(voice)) offered.push_back(std::move(one));
  }
  return offered;
}

// A large model on a slow machine computes a long sentence for so long.
std::chrono::milliseconds NaturalSynthesizer::Patience() const {
  return std::chrono::minutes(2);
}

void NaturalSynthesizer::Apply(std::size_t voice, const Utterance& utterance) {
  if (voice < choices_.size()) choice_ = choices_[voice];
  pitch_ = std::exp2((utterance.pitch - kMiddlePitch) / kPitchSteps);
  pace_ = kUsualSpeed / std::max(utterance.speed, 1);
  volume_ = static_cast<float>(std::clamp(utterance.volumeLeft, 0, 100)) / 100;
  lastRun_ = 0;
}

// Whatever goes wrong is told with the text.
void NaturalSynthesizer::Prepare(std::size_t voice) {
  if (voice >= choices_.size()) return;
  choice_ = choices_[voice];
  (void)Load();
}

void NaturalSynthesizer::SetCancelled(bool cancelled) {
  cancelled_ = cancelled;
  if (const OnnxRuntime* const runtime = stoppable_.load()) runtime->SetStopped(cancelled);
}

bool NaturalSynthesizer::Fail(const std::string& reason) {
  problem_ =
      "Die Stimme „" + PathText(Current().model.stem()) + "“ lässt sich nicht verwenden: " + reason + ".";
  return false;
}

bool NaturalSynthesizer::OpenRuntime() {
  if (runtime_) return true;
  runtime_ = OnnxRuntime::Open(runtimeFile_);
  if (!runtime_) return Fail("Die ONNX Runtime „" + PathText(runtimeFile_) + "“ lässt sich nicht laden");
  stoppable_ = runtime_.get();
  if (cancelled_) runtime_->SetStopped(true);
  return true;
}

std::unique_ptr<NaturalSynthesizer::Loaded> NaturalSynthesizer::LoadModel() {
  std::string reason = "ihr Modell fehlt oder ist zu groß";
  std::optional<PatchedModel> model;
  if (const auto bytes = ReadBounded(Current().model, kLargestModel)) model = PatchModel(*bytes, reason);
  if (!model) return Fail(reason), nullptr;
  auto session = runtime_->Load(model->bytes);
  if (!session) return Fail("die ONNX Runtime kann ihr Modell nicht ausführen"), nullptr;
  return std::make_unique<Loaded>(
      Loaded{choice_.voice, std::move(model->durations), model->hasSpeakers, std::move(session)});
}

NaturalSynthesizer::Loaded* NaturalSynthesizer::Load() {
  const auto found = std::find_if(loaded_.begin(), loaded_.end(),
                                  [this](const auto& loaded) { return loaded->voice == choice_.voice; });
  if (found != loaded_.end()) {
    std::rotate(loaded_.begin(), found, found + 1);
    return loaded_.front().get();
  }
  if (!OpenRuntime()) return nullptr;
  while (loaded_.size() >= kMostModels) loaded_.pop_back();
  auto loaded = LoadModel();
  if (!loaded) return nullptr;
  loaded_.push_front(std::move(loaded));
  return loaded_.front().get();
}

bool NaturalSynthesizer::Speak(std::string_view text, const Samples& samples, const WordMarker::Take& words) {
  problem_.clear();
  std::uint64_t samplesBefore = 0;
  std::size_t charactersBefore = 0;
  while (!text.empty()) {
    const std::string part(text.substr(0, NextPiece(text)));
    Piece piece(
        part, samples,
        [&](const WordMark& mark) {
          words({samplesBefore + mark.sample, charactersBefore + mark.begin, charactersBefore + mark.end});
        },
        volume_);
    if (!SpeakPiece(piece, part)) return false;
    piece.End();
    samplesBefore += piece.Taken();
    charactersBefore += CharacterCount(part);
    text.remove_prefix(part.size());
  }
  return true;
}

bool NaturalSynthesizer::SpeakPiece(Piece& piece, const std::string& text) {
  if (!library_.Select(Current().espeakVoice))
    return Fail("eSpeak NG kennt die Sprache „" + Current().espeakVoice + "“ nicht");
  Phonemizer phonemizer(library_, Current().espeakVoice, text);
  RunMaker maker(Current());
  while (const auto clause = phonemizer.Next()) {
    if (!SpeakClause(piece, maker, *clause)) return false;
  }
  return SpeakRun(piece, maker.Take());
}

bool NaturalSynthesizer::SpeakClause(Piece& piece, RunMaker& maker, const Clause& clause) {
  if (!maker.HasRoomFor(clause, kGrowth * lastRun_) && !SpeakRun(piece, maker.Take())) return false;
  std::size_t at = maker.Add(clause);
  while (at < clause.symbols.size()) {
    if (!SpeakRun(piece, maker.Take())) return false;
    at = maker.Add(clause, at);
  }
  return !clause.endsSentence || SpeakRun(piece, maker.Take());
}

bool NaturalSynthesizer::SpeakRun(Piece& piece, const Run& run) {
  if (run.empty) return !cancelled_;
  Loaded* const loaded = Load();
  if (loaded == nullptr || cancelled_) return false;
  const auto sound = Compute(*loaded, run);
  if (!sound) return cancelled_ ? false : Fail("ihr Modell rechnet falsch");
  lastRun_ = run.ids.size();
  const double step = Current().sampleRate * pitch_ / library_.SampleRate();
  const double scale = sound->excess / step;
  for (const WordStart& word : run.words) {
    if (word.symbol >= sound->symbolAt.size()) continue;
    piece.Word(word.character,
               static_cast<std::uint64_t>(static_cast<double>(sound->symbolAt[word.symbol]) * scale));
  }
  if (!piece.Pass(Lengthened(Resampled(sound->samples, step), sound->excess))) return false;
  const double pause = run.endsSentence ? kPauseSeconds * pace_ : 0;
  return piece.Pass(std::vector<float>(static_cast<std::size_t>(pause * library_.SampleRate()), 0));
}

std::vector<float> NaturalSynthesizer::Lengthened(std::vector<float> samples, double times) const {
  if (times == 1) return samples;
  const auto size = static_cast<std::size_t>(std::llround(static_cast<double>(samples.size()) * times));
  return Stretched(samples, size, library_.SampleRate());
}

std::optional<NaturalSynthesizer::Sound> NaturalSynthesizer::Compute(Loaded& loaded, const Run& run) const {
  const NaturalVoice& voice = Current();
  std::vector<std::int64_t> ids = run.ids;
  std::array<std::int64_t, 1> length{static_cast<std::int64_t>(ids.size())};
  std::array<std::int64_t, 1> speaker{voice.speakers[choice_.speaker].id};
  std::array<float, 3> scales{voice.noiseScale, static_cast<float>(voice.lengthScale * pace_ * pitch_),
                              voice.noiseOfDurations};
  using Numbers = OnnxRuntime::Numbers;
  std::vector<Numbers> inputs{Numbers{.name = "input", .whole = ids, .real = {}, .isList = false},
                              Numbers{.name = "input_lengths", .whole = length, .real = {}},
                              Numbers{.name = "scales", .whole = {}, .real = scales}};
  if (loaded.hasSpeakers) inputs.push_back(Numbers{.name = "sid", .whole = speaker, .real = {}});
  auto result = loaded.session->Run(inputs, loaded.durations,
                                    static_cast<std::size_t>(kLongestRunSeconds * voice.sampleRate));
  if (!result ||
      !std::all_of(result->output.begin(), result->output.end(), [](float s) { return std::isfinite(s); }))
    return std::nullopt;
  auto starts = SymbolStarts(result->durations, ids.size(), result->output.size());
  const double excess = starts.empty() ? 1 : Excess(result->durations, pitch_);
  return Sound{.samples = std::move(result->output),
               .symbolAt = std::move(starts),
               .excess = std::abs(excess - 1) < kNearEnough ? 1 : excess};
}

}  // namespace lorelin::engine
