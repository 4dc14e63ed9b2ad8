#include <benchmark/benchmark.h>

#include <chrono>
#include <thread>

#include "base/TaskPump.h"
#include "platform/linux/EngineClient.h"
#include "ports/Platform.h"

// From the click on "Sprechen" to the first samples on their way to the sound device, as the engine tells it.
// Limit: 50 ms at the median.
namespace {

using namespace lorelin;

class Fixture {
 public:
  Fixture() : services_(MakePlatformServices(false)) {
    engine = std::make_unique<EngineClient>(
        EngineClient::Options{.engineFile = services_.paths.engineFile, .audible = true, .condition = {}},
        pump, *services_.clock, *services_.log);
    engine->SetCurrentVoice(2);
    Wait(std::chrono::milliseconds(500));
  }
  void Wait(std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end) pump.WaitForEvents();
  }

 private:
  PlatformServices services_;

 public:
  TaskPump pump;
  std::unique_ptr<EngineClient> engine;
};

void Measure(benchmark::State& state, std::chrono::milliseconds rest) {
  Fixture fixture;
  for (auto _ : state) {
    fixture.engine->Speak("Guten Tag, hier ist Lorelin.");
    const auto before = std::chrono::steady_clock::now();
    fixture.Wait(std::chrono::milliseconds(250));
    state.SetIterationTime(std::chrono::duration<double>(fixture.engine->LastStartLatency()).count());
    fixture.engine->ResetAudio();
    fixture.Wait(rest);
    benchmark::DoNotOptimize(before);
  }
}

// The device is still open from the text before.
void ClickToFirstSampleAgain(benchmark::State& state) {
  Measure(state, std::chrono::milliseconds(100));
}
// The device was closed meanwhile and has to be opened.
void ClickToFirstSampleAfterARest(benchmark::State& state) {
  Measure(state, std::chrono::milliseconds(2500));
}

}  // namespace

BENCHMARK(ClickToFirstSampleAgain)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(15)
    ->Unit(benchmark::kMillisecond)
    ->ReportAggregatesOnly(true);
BENCHMARK(ClickToFirstSampleAfterARest)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(9)
    ->Unit(benchmark::kMillisecond)
    ->ReportAggregatesOnly(true);

BENCHMARK_MAIN();
