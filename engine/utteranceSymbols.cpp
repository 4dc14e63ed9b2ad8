#include "engine/utteranceSymbols.h"

#include <utility>

namespace lorelin::engine {
namespace {

constexpr char32_t kFirst = U'^';
constexpr char32_t kBetween = U'_';
constexpr char32_t kLast = U'$';
constexpr std::size_t kMostIdsOfAnEnd = 40;

}  // namespace

void RunMaker::Append(char32_t symbol) {
  const auto found = voice_.symbols.find(symbol);
  if (found != voice_.symbols.end())
    run_.ids.insert(run_.ids.end(), found->second.begin(), found->second.end());
}

bool RunMaker::AddSymbol(char32_t symbol) {
  if (!voice_.symbols.contains(symbol)) return false;
  Append(symbol);
  Append(kBetween);
  return true;
}

bool RunMaker::HasRoomFor(const Clause& clause, std::size_t most) const {
  return run_.ids.empty() || run_.ids.size() + 2 * clause.symbols.size() <= std::min(most, kLongestRun);
}

std::size_t RunMaker::Add(const Clause& clause, std::size_t from) {
  if (run_.ids.empty()) {
    Append(kFirst);
    Append(kBetween);
  }
  if (!run_.empty) AddSymbol(U' ');
  auto word = clause.words.begin();
  std::size_t at = from;
  for (; at < clause.symbols.size(); ++at) {
    const bool full = run_.ids.size() + kMostIdsOfAnEnd > kLongestRun;
    if (full && (clause.symbols[at] == U' ' || run_.ids.size() + kMostIdsOfAnEnd / 2 > kLongestRun)) break;
    for (; word != clause.words.end() && word->symbol <= at; ++word) {
      if (word->symbol >= from) run_.words.push_back({word->character, run_.ids.size()});
    }
    if (AddSymbol(clause.symbols[at]) && clause.symbols[at] != U' ') run_.empty = false;
  }
  const bool whole = at >= clause.symbols.size();
  if (whole) AddSymbol(clause.sign);
  run_.endsSentence = whole && clause.endsSentence;
  return at;
}

Run RunMaker::Take() {
  if (!run_.ids.empty()) Append(kLast);
  return std::exchange(run_, Run{});
}

}  // namespace lorelin::engine
