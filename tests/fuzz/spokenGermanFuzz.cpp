#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "german/characters.h"
#include "german/sentences.h"
#include "german/spokenGerman.h"

namespace {

void Hold(bool condition) {
  if (!condition) std::abort();
}

// The characters of a text, one piece each.
std::vector<std::string_view> Characters(std::string_view text) {
  std::vector<std::string_view> pieces;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = lorelin::CharacterAt(text, at).length;
    pieces.push_back(text.substr(at, length));
    at += length;
  }
  return pieces;
}

// The runs lie in order, inside of both texts, and all between them is the same.
void CheckRuns(std::string_view written, const lorelin::SpokenText& spoken) {
  const auto before = Characters(written);
  const auto after = Characters(spoken.text);
  std::size_t spokenAt = 0;
  std::size_t writtenAt = 0;
  const auto same = [&](std::size_t spokenEnd, std::size_t writtenEnd) {
    Hold(spokenEnd >= spokenAt && writtenEnd >= writtenAt && spokenEnd - spokenAt == writtenEnd - writtenAt);
    Hold(spokenEnd <= after.size() && writtenEnd <= before.size());
    for (; spokenAt < spokenEnd; ++spokenAt, ++writtenAt) Hold(after[spokenAt] == before[writtenAt]);
  };
  for (const lorelin::SpokenRun& run : spoken.runs) {
    same(run.spokenBegin, run.writtenBegin);
    Hold(run.spokenEnd >= run.spokenBegin && run.writtenEnd >= run.writtenBegin);
    spokenAt = run.spokenEnd;
    writtenAt = run.writtenEnd;
  }
  same(after.size(), before.size());
}

}  // namespace

// Any bytes come through: the runs fit, sentence by sentence it is the same, and what is spelled out stays.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const lorelin::SpokenText spoken = lorelin::SpellOut(text);
  CheckRuns(text, spoken);
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
