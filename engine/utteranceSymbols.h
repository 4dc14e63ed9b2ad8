#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/naturalVoices.h"
#include "engine/phonemes.h"

namespace lorelin::engine {

// What a model is given at once: one clause or some, as the numbers of its own table.
struct Run {
  std::vector<std::int64_t> ids;
  std::vector<WordStart> words;  // by the place among the ids
  bool endsSentence = false;
  bool empty = true;  // no sound that the voice knows
};

// No run is longer than this many ids.
inline constexpr std::size_t kLongestRun = 1200;

// Puts clauses into runs. What the voice has no number for is left out.
class RunMaker {
 public:
  explicit RunMaker(const NaturalVoice& voice) : voice_(voice) {}

  // Whether the clause has room in the run that is being made.
  [[nodiscard]] bool HasRoomFor(const Clause& clause, std::size_t most) const;
  // Adds the clause, or as much of it from this symbol on as there is room for at all; returns the symbol
  // behind.
  std::size_t Add(const Clause& clause, std::size_t from = 0);
  // The run with its beginning and end; another begins.
  [[nodiscard]] Run Take();

 private:
  bool AddSymbol(char32_t symbol);
  void Append(char32_t symbol);

  const NaturalVoice& voice_;
  Run run_;
};

}  // namespace lorelin::engine
