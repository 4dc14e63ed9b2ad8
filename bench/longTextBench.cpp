#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

#include "base/TaskPump.h"
#include "platform/linux/EngineClient.h"
#include "ports/Platform.h"
#include "speech/SpelledSpeech.h"

// From the click on "Sprechen" to the first samples of a German text in which every sentence has to be
// spelled out. Limit: a text of 1 MB begins as early as one of 1 kB.
namespace {

using namespace lorelin;

std::string Text(std::size_t bytes) {
  std::string text;
  while (text.size() < bytes) text += "Am 3. Mai um 14:30 Uhr kosten 5 kg Mehl z. B. 4,50 €. ";
  return text;
}

void ClickToFirstSample(benchmark::State& state) {
  const PlatformServices services = MakePlatformServices(false);
  TaskPump pump;
  EngineClient engine({.engineFile = services.paths.engineFile, .audible = true, .condition = {}}, pump,
                      *services.clock, *services.log);
  const auto speller = std::make_shared<const GermanSpeller>();
  SpelledSpeech speech(engine, pump,
                       [&](std::string_view text) { return std::make_shared<SpelledText>(speller, text); });
  speech.SetCurrentVoice(2);
  const auto wait = [&](std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end) pump.WaitForEvents();
  };
  wait(std::chrono::milliseconds(500));
  const std::string text = Text(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    const auto before = std::chrono::steady_clock::now();
    speech.Speak(text);
    const std::chrono::duration<double> spelling = std::chrono::steady_clock::now() - before;
    wait(std::chrono::milliseconds(1500));
    const std::chrono::duration<double> engineStart = engine.LastStartLatency();
    state.SetIterationTime((spelling + engineStart).count());
    speech.ResetAudio();
    wait(std::chrono::milliseconds(100));
  }
}

// The whole text, part by part; 1 MB takes at most half a second.
void SpellOutInParts(benchmark::State& state) {
  const auto speller = std::make_shared<const GermanSpeller>();
  const std::string text = Text(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    SpelledText spelled(speller, text);
    for (std::size_t part = 0; !spelled.Part(part).empty(); ++part) continue;
    benchmark::DoNotOptimize(spelled.Runs().size());
  }
}

}  // namespace

BENCHMARK(ClickToFirstSample)
    ->Arg(1 << 10)
    ->Arg(1 << 20)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(9)
    ->Unit(benchmark::kMillisecond)
    ->ReportAggregatesOnly(true);
BENCHMARK(SpellOutInParts)->Arg(1 << 20)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
