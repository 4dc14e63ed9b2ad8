#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/textEncoding.h"
#include "engine/naturalVoices.h"
#include "engine/utteranceSymbols.h"

// Whatever a voice's description says, it is refused with a reason, or every number in it can be used.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace lorelin::engine;
  std::string problem;
  const auto voice = ReadNaturalVoice({reinterpret_cast<const char*>(data), size}, problem);
  if (voice.has_value() != problem.empty()) std::abort();
  if (!voice) return 0;
  if (OfferedVoices(*voice).size() != voice->speakers.size() || voice->speakers.empty()) std::abort();
  for (const Voice& offered : OfferedVoices(*voice)) {
    if (!lorelin::IsValidUtf8(offered.name)) std::abort();
  }
  RunMaker maker(*voice);
  Clause clause{.symbols = {}, .words = {{0, 0}, {5, 600}}};
  for (const auto& [symbol, ids] : voice->symbols) clause.symbols.append(3, symbol);
  for (std::size_t at = 0; at < clause.symbols.size();) {
    const std::size_t next = maker.Add(clause, at);
    const Run run = maker.Take();
    if (next <= at || run.ids.size() > kLongestRun + 30) std::abort();
    for (const std::int64_t id : run.ids) {
      if (id < 0 || id >= 4096) std::abort();
    }
    at = next;
  }
  return 0;
}
