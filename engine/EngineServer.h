#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>

#include "engine/AudioOutput.h"
#include "engine/SampleSink.h"
#include "engine/Synthesizers.h"
#include "engine/protocol.h"

namespace lorelin::engine {

// The engine's process: one thread reads the socket, so that pause and reset act at once; one speaks.
class EngineServer {
 public:
  // Serves the connected stream socket, which it closes at the end.
  EngineServer(int socket, bool warmUpAudio);
  ~EngineServer();
  EngineServer(const EngineServer&) = delete;
  EngineServer& operator=(const EngineServer&) = delete;

  // Tells what there is to speak with; false when nobody is there any more.
  [[nodiscard]] bool Greet();
  // That the system allows this process more than it needs: files, or calls as well.
  void TellUnconfined(bool filesOnly);
  // After Greet. Returns the process's exit code when the other end has closed the connection or broken the
  // protocol.
  int Run();

 private:
  class DeviceSink;
  class TellingSink;

  // How much of an utterance went to the sink.
  struct Progress {
    std::uint32_t id = 0;
    std::uint64_t samples = 0;
    std::size_t characters = 0;
  };

  void Work();
  std::optional<Utterance> NextUtterance();
  void Perform(const Utterance& utterance);
  [[nodiscard]] std::unique_ptr<SampleSink> SinkFor(const Utterance& utterance);
  std::string Render(const Utterance& utterance, SampleSink& sink, Progress& progress);
  bool SynthesizeParts(const Utterance& utterance, Synthesizer& synthesizer, SampleSink& sink,
                       Progress& progress);
  [[nodiscard]] std::uint32_t Milliseconds(std::uint64_t samples) const;
  std::optional<std::string> NextPart();
  bool SynthesizePart(std::string_view part, Synthesizer& synthesizer, SampleSink& sink, Progress& progress);
  bool Pass(SampleSink& sink, std::span<const std::int16_t> samples, std::uint32_t id);
  void TellWords();
  bool Handle(const Message& message);
  void StartSpeaking(Utterance utterance);
  void PrepareVoice(std::int32_t voice);
  void TakePart(TextPart part);
  void Discard();
  void SetPaused(bool paused);
  bool Send(const std::string& frame);
  void EndIfStuck() const;
  void End();

  const int socket_;
  const bool warmUpAudio_;
  Synthesizers synthesizers_;
  AudioOutput audio_;
  std::mutex sending_;

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<Utterance> waiting_;
  std::optional<std::int32_t> toPrepare_;  // a voice
  std::uint32_t goesOn_ = 0;               // the text of which more is to come
  std::deque<std::string> parts_;
  bool speaking_ = false;
  bool discarded_ = false;
  bool paused_ = false;
  bool closing_ = false;
  bool workEnded_ = false;

  // When a synthesizer was last entered or called back; zero while none runs.
  std::atomic<std::int64_t> inLibrarySince_{0};
  std::atomic<std::int64_t> patience_{0};  // of the synthesizer, in milliseconds
  std::thread worker_;
  std::thread teller_;  // of the words that are heard
};

}  // namespace lorelin::engine
