#pragma once

#include <string_view>
#include <vector>

#include "german/SpokenText.h"
#include "german/characters.h"
#include "tests/fuzz/input.h"

namespace lorelin::fuzz {

// The characters of a text, one piece each.
inline std::vector<std::string_view> Characters(std::string_view text) {
  std::vector<std::string_view> pieces;
  pieces.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = CharacterAt(text, at).length;
    pieces.push_back(text.substr(at, length));
    at += length;
  }
  return pieces;
}

// The runs lie in order, inside of both texts, and all between them is the same.
inline void CheckRuns(std::string_view written, const SpokenText& spoken) {
  const auto before = Characters(written);
  const auto after = Characters(spoken.text);
  std::size_t spokenAt = 0;
  std::size_t writtenAt = 0;
  const auto same = [&](std::size_t spokenEnd, std::size_t writtenEnd) {
    Hold(spokenEnd >= spokenAt && writtenEnd >= writtenAt && spokenEnd - spokenAt == writtenEnd - writtenAt);
    Hold(spokenEnd <= after.size() && writtenEnd <= before.size());
    for (; spokenAt < spokenEnd; ++spokenAt, ++writtenAt) Hold(after[spokenAt] == before[writtenAt]);
  };
  for (const SpokenRun& run : spoken.runs) {
    same(run.spokenBegin, run.writtenBegin);
    Hold(run.spokenEnd >= run.spokenBegin && run.writtenEnd >= run.writtenBegin);
    spokenAt = run.spokenEnd;
    writtenAt = run.writtenEnd;
  }
  same(after.size(), before.size());
}

}  // namespace lorelin::fuzz
