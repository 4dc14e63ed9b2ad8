#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/EspeakLibrary.h"
#include "engine/OnnxRuntime.h"
#include "engine/Synthesizer.h"
#include "engine/naturalVoices.h"
#include "engine/utteranceSymbols.h"

namespace lorelin::engine {

// Voices that a neural network speaks (the form of Piper voices: VITS as an ONNX model). Sounds come from
// libespeak-ng. A text sounds the same every time.
class NaturalSynthesizer final : public Synthesizer {
 public:
  // `runtime` is opened when the first text is spoken. The library must outlive the object.
  NaturalSynthesizer(EspeakLibrary& library, std::filesystem::path runtime, std::vector<NaturalVoice> voices);
  ~NaturalSynthesizer() override;

  [[nodiscard]] std::vector<Voice> Voices() const override;
  void Apply(std::size_t voice, const Utterance& utterance) override;
  void Prepare(std::size_t voice) override;
  bool Speak(std::string_view text, const Samples& samples, const WordMarker::Take& words) override;
  [[nodiscard]] std::string Problem() const override { return problem_; }
  [[nodiscard]] std::chrono::milliseconds Patience() const override;
  void SetCancelled(bool cancelled) override;

 private:
  struct Choice {
    std::size_t voice = 0;
    std::size_t speaker = 0;
  };
  struct Loaded {
    std::size_t voice = 0;
    std::string durations;
    bool hasSpeakers = false;
    std::unique_ptr<OnnxRuntime::Session> session;
  };
  struct Sound {
    std::vector<float> samples;           // at the voice's rate, higher by what Apply told
    std::vector<std::uint64_t> symbolAt;  // the sample that each id begins with; empty when unknown
    double excess = 1;                    // how many times as long it has to be
  };
  class Piece;

  [[nodiscard]] const NaturalVoice& Current() const { return voices_[choice_.voice]; }
  Loaded* Load();
  bool OpenRuntime();
  std::unique_ptr<Loaded> LoadModel();
  bool Fail(const std::string& reason);
  bool SpeakPiece(Piece& piece, const std::string& text);
  bool SpeakClause(Piece& piece, RunMaker& maker, const Clause& clause);
  bool SpeakRun(Piece& piece, const Run& run);
  [[nodiscard]] std::vector<float> Lengthened(std::vector<float> samples, double times) const;
  [[nodiscard]] std::optional<Sound> Compute(Loaded& loaded, const Run& run) const;

  EspeakLibrary& library_;
  const std::filesystem::path runtimeFile_;
  const std::vector<NaturalVoice> voices_;
  std::vector<Choice> choices_;
  std::atomic<OnnxRuntime*> stoppable_{nullptr};
  std::unique_ptr<OnnxRuntime> runtime_;
  std::deque<std::unique_ptr<Loaded>> loaded_;  // the one used last in front
  std::atomic<bool> cancelled_{false};
  std::string problem_;
  Choice choice_;
  double pitch_ = 1;         // how many times as high as it is
  double pace_ = 1;          // how many times as slow as usual
  float volume_ = 1;         // of full
  std::size_t lastRun_ = 0;  // ids of the text's last run
};

}  // namespace lorelin::engine
