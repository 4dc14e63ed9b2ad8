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
  std::string joined;
  std::size_t end = 0;
  int sentences = 0;
  for (const lorelin::TextRange& range : lorelin::Sentences(text)) {
    Hold(range.begin == end && range.end > range.begin);
    end = range.end;
    const std::string_view sentence = text.substr(range.begin, range.end - range.begin);
    const lorelin::SpokenText once = lorelin::SpellOut(sentence);
    lorelin::fuzz::CheckRuns(sentence, once);
    if (!once.runs.empty()) Hold(lorelin::SpellOut(once.text).text == once.text);
    joined += once.text;
    ++sentences;
  }
  Hold(end == text.size());
  if (sentences < 2) return 0;
  const lorelin::SpokenText spoken = lorelin::SpellOut(text);
  lorelin::fuzz::CheckRuns(text, spoken);
  Hold(joined == spoken.text);
  return 0;
}
