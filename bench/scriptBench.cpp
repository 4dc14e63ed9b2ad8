#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "scripts/scriptChecker.h"
#include "scripts/scriptColours.h"
#include "scripts/scriptLanguage.h"

// How many lines of a task script are read, checked and coloured in a second, beside only looking for their
// ends.

namespace lorelin {
namespace {

constexpr int kRepetitions = 1000;

std::string Script(std::string_view lineEnd) {
  std::string script;
  for (int i = 0; i < kRepetitions; ++i) {
    for (const auto* const line :
         {"# Das ist ein Kommentar, der übersprungen wird.", "Sprechen2(Es ist $Zeit Uhr\\, guten Morgen.);",
          "Ersetzen(z. B.,zum Beispiel);", "Eine Zeile ohne Befehl.", "Warten(10);"}) {
      script += line;
      script += lineEnd;
    }
  }
  return script;
}

void CountLines(benchmark::State& state, std::int64_t lines) {
  state.SetItemsProcessed(state.iterations() * lines);
}

void FindLineEnds(benchmark::State& state) {
  const std::string script = Script("\r\n");
  for (auto _ : state) {
    ForEachScriptLine(script, [](std::string_view line) {
      benchmark::DoNotOptimize(line);
      return true;
    });
  }
  CountLines(state, kRepetitions * 5);
}
BENCHMARK(FindLineEnds);

void CutScript(benchmark::State& state) {
  const std::string script = Script("\r\n");
  for (auto _ : state) {
    ForEachScriptLine(script, [](std::string_view line) {
      benchmark::DoNotOptimize(CutLine(line));
      return true;
    });
  }
  CountLines(state, kRepetitions * 5);
}
BENCHMARK(CutScript);

void CheckWholeScript(benchmark::State& state) {
  const std::string script = Script("\r\n");
  for (auto _ : state) benchmark::DoNotOptimize(CheckScript(script));
  CountLines(state, kRepetitions * 5);
}
BENCHMARK(CheckWholeScript);

void ColourWholeScript(benchmark::State& state) {
  const std::string script = Script("\n");
  for (auto _ : state) benchmark::DoNotOptimize(ColourScript(script));
  CountLines(state, kRepetitions * 5);
}
BENCHMARK(ColourWholeScript);

}  // namespace
}  // namespace lorelin

BENCHMARK_MAIN();
