#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "base/TaskPump.h"
#include "platform/linux/EngineClient.h"
#include "ports/Platform.h"

// A natural voice of real size (bench/make-voice; XDG_DATA_HOME says where it lies): from Speak to the first
// samples on their way to the sound device, with the other instance rendering the same text, and how long
// rendering takes for a second of speech. Limits: 0.4 s at the median for the first sound, also of the first
// text; less than half of real time.
namespace {

using namespace lorelin;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr const char* kText =
    "Guten Tag, hier ist Lorelin. Was Sie jetzt hören, ist in Wirklichkeit nur Rauschen, aber es wird "
    "genauso "
    "lange gerechnet wie an einer Stimme. Danach kommt noch ein Satz, und dann ist Schluss.";

std::int32_t VoiceOf(EngineClient& engine, const std::string& part) {
  for (std::int32_t number = 1; number <= engine.VoiceCount(); ++number) {
    if (engine.VoiceName(number).find(part) != std::string::npos) return number;
  }
  return 0;
}

class Instances {
 public:
  Instances() : services_(MakePlatformServices(false)) {
    for (auto& [engine, audible] : {std::pair(&voice, true), std::pair(&voice2, false)}) {
      *engine = std::make_unique<EngineClient>(
          EngineClient::Options{
              .engineFile = services_.paths.engineFile, .audible = audible, .condition = {}},
          pump, *services_.clock, *services_.log);
    }
    number = VoiceOf(*voice, "mass (mittel)");
    for (EngineClient* const engine : {voice.get(), voice2.get()}) {
      engine->SetCurrentVoice(number);
      engine->SetSpeed(175);
    }
    voice2->SetWaveFile(file);
  }
  ~Instances() { std::filesystem::remove(file); }
  Instances(const Instances&) = delete;
  Instances& operator=(const Instances&) = delete;

  void Speak() {
    voice->Speak(kText);
    voice2->Speak(kText);
  }
  void RunFor(milliseconds time) {
    const auto end = steady_clock::now() + time;
    while (steady_clock::now() < end) pump.WaitForEvents();
  }

 private:
  PlatformServices services_;

 public:
  const std::string file = std::filesystem::temp_directory_path() / "lorelin-bench.wav";
  TaskPump pump;
  std::unique_ptr<EngineClient> voice;
  std::unique_ptr<EngineClient> voice2;
  std::int32_t number = 0;
};

bool Lacks(benchmark::State& state, const Instances& instances) {
  if (instances.number == 0) state.SkipWithError("there is no such voice, or no ONNX Runtime");
  return instances.number == 0;
}

double FirstSound(Instances& instances) {
  instances.Speak();
  instances.RunFor(milliseconds(2500));
  const double seconds = std::chrono::duration<double>(instances.voice->LastStartLatency()).count();
  instances.voice->ResetAudio();
  instances.voice2->ResetAudio();
  return seconds;
}

// The program was just started.
void FirstSoundOfTheFirstText(benchmark::State& state) {
  for (auto _ : state) {
    Instances instances;
    if (Lacks(state, instances)) return;
    instances.RunFor(milliseconds(1500));
    state.SetIterationTime(FirstSound(instances));
  }
}

void FirstSoundAgain(benchmark::State& state) {
  Instances instances;
  if (Lacks(state, instances)) return;
  (void)FirstSound(instances);
  for (auto _ : state) {
    instances.RunFor(milliseconds(300));
    state.SetIterationTime(FirstSound(instances));
  }
}

// Of rendering while the other instance plays; memory of the rendering process at its end.
void RealTimeFactor(benchmark::State& state) {
  Instances instances;
  if (Lacks(state, instances)) return;
  bool ended = false;
  instances.voice2->OnEndOfText([&](const EndOfText&) { ended = true; });
  for (auto _ : state) {
    ended = false;
    const auto begin = steady_clock::now();
    instances.Speak();
    while (!ended) instances.pump.WaitForEvents();
    const double took = std::chrono::duration<double>(steady_clock::now() - begin).count();
    const double lasts = (static_cast<double>(std::filesystem::file_size(instances.file)) - 44) / 44100;
    state.SetIterationTime(took / lasts);
    instances.voice->ResetAudio();
  }
  std::ifstream status("/proc/" + std::to_string(instances.voice2->ProcessId()) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmRSS:")) state.counters["MB"] = std::stod(line.substr(6)) / 1024;
  }
}

}  // namespace

BENCHMARK(FirstSoundOfTheFirstText)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(5)
    ->Unit(benchmark::kMillisecond)
    ->ReportAggregatesOnly(true);
BENCHMARK(FirstSoundAgain)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(5)
    ->Unit(benchmark::kMillisecond)
    ->ReportAggregatesOnly(true);
BENCHMARK(RealTimeFactor)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kSecond)
    ->ReportAggregatesOnly(true);

BENCHMARK_MAIN();
