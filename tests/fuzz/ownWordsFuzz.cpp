#include <algorithm>
#include <string>

#include "base/textEncoding.h"
#include "german/ownWords.h"
#include "german/spokenGerman.h"
#include "speech/Pronunciations.h"
#include "tests/fuzz/input.h"
#include "tests/fuzz/spokenRuns.h"

using lorelin::WordList;
using lorelin::fuzz::Hold;

namespace {

// What was read comes back when it is written, alone or with the others.
void CheckReading(std::string_view file) {
  const WordList words = lorelin::ParseWordList(file);
  std::string written = "# Kopf\n";
  for (const lorelin::OwnWord& word : words) {
    Hold(!word.written.empty() && word.written.find('\n') == std::string::npos);
    written += lorelin::WordListLine(word) + '\n';
  }
  Hold(std::is_sorted(words.begin(), words.end(),
                      [](const auto& a, const auto& b) { return a.written.size() > b.written.size(); }));
  Hold(lorelin::ParseWordList(written) == words);
}

// What a form lets through is kept, whatever else stands in the file, and none of the other words is lost.
void CheckKeeping(std::string_view file, const lorelin::OwnWord& word) {
  if (lorelin::WordProblem(word)) return;
  const WordList words = lorelin::WithWord(lorelin::ParseWordList(file), std::nullopt, word);
  const WordList kept = lorelin::ParseWordList(lorelin::UpdatedWordsFile(file, words));
  Hold(kept.size() == words.size());
  Hold(std::is_permutation(kept.begin(), kept.end(), words.begin()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lorelin::fuzz::Input input(data, size);
  lorelin::OwnWord word;
  const std::uint8_t flags = input.Byte();
  word.wholeWord = flags % 2 == 0;
  word.matchCase = flags / 2 % 2 == 0;
  word.written = lorelin::DecodeText(input.Text());
  word.spoken = lorelin::DecodeText(input.Text());
  const std::string file = lorelin::DecodeText(input.Text());
  CheckReading(file);
  CheckKeeping(file, word);
  const std::string text = lorelin::DecodeText(input.Rest());
  const lorelin::GermanSpeller speller(
      {.ownWords = lorelin::ParseWordList(file), .speakEmoji = true, .rules = {}});
  lorelin::fuzz::CheckRuns(text, speller.SpellOut(text));
  return 0;
}
