#include <benchmark/benchmark.h>

#include <string>

#include "german/sentences.h"
#include "german/spokenGerman.h"

namespace lorelin {
namespace {

constexpr const char* kProse =
    "Der Verein wurde 1921 gegründet und hat heute rund 780 Mitglieder. Wer am Ufer entlanggeht, sieht die "
    "alten Kähne, "
    "die seit Jahren niemand mehr braucht, und dahinter die Häuser der Fischer. Dr. Meyer kommt am 3.10.2026 "
    "um "
    "20:15 Uhr, z. B. mit 5,50 € und 1 Tasse Tee. Es regnete, doch das hielt die Leute nicht davon ab, den "
    "ganzen "
    "Nachmittag auf dem Platz zu stehen und zu warten. ";

std::string Repeated(std::string_view part, std::size_t size) {
  std::string text;
  text.reserve(size + part.size());
  while (text.size() < size) text += part;
  return text;
}

void Spell(benchmark::State& state, std::string_view part) {
  const std::string text = Repeated(part, static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(SpellOut(text));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

constexpr std::int64_t kMegabyte = 1'000'000;
BENCHMARK_CAPTURE(Spell, prose, kProse)->Arg(kMegabyte)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Spell, digits, "7")->Arg(kMegabyte)->Arg(10 * kMegabyte)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Spell, fullStops, ".")->Arg(kMegabyte)->Arg(10 * kMegabyte)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Spell, oneWord, "a")->Arg(kMegabyte)->Arg(10 * kMegabyte)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Spell, ordinals, "1. ")->Arg(kMegabyte)->Arg(10 * kMegabyte)->Unit(benchmark::kMillisecond);

// What stands between a text and its first sound: the first sentence, however long the text is.
void FirstSentence(benchmark::State& state) {
  const std::string text = Repeated(kProse, static_cast<std::size_t>(state.range(0)));
  const GermanSpeller speller;
  for (auto _ : state)
    benchmark::DoNotOptimize(speller.SpellOut(std::string_view(text).substr(0, speller.PieceEnd(text, 0))));
}
BENCHMARK(FirstSentence)->Arg(1000)->Arg(kMegabyte)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace lorelin

BENCHMARK_MAIN();
