#include <cstdint>
#include <string>
#include <string_view>

#include "german/sentences.h"
#include "german/spokenGerman.h"
#include "tests/fuzz/spokenRuns.h"

using lorelin::fuzz::Hold;

// Any bytes come through: the runs fit, sentence by sentence it is the same, and what is spelled out stays.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const lorelin::SpokenText spoken = lorelin::SpellOut(text);
  lorelin::fuzz::CheckRuns(text, spoken);
  std::string joined;
  std::size_t end = 0;
  for (const lorelin::TextRange& range : lorelin::Sentences(text)) {
    Hold(range.begin == end && range.end > range.begin);
    end = range.end;
    const std::string once = lorelin::SpellOut(text.substr(range.begin, range.end - range.begin)).text;
    Hold(lorelin::SpellOut(once).text == once);
    joined += once;
  }
  Hold(end == text.size());
  Hold(joined == spoken.text);
  return 0;
}
