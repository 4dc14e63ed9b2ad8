#include <string>

#include "base/textEncoding.h"
#include "german/textRules.h"
#include "speech/readingRules.h"
#include "tests/fuzz/input.h"
#include "tests/fuzz/spokenRuns.h"

using lorelin::fuzz::Hold;

namespace {

// Every match lies in the text, its groups in it; an expression without signs is found where the text has it.
void CheckSearch(std::string_view expression, std::string_view text) {
  std::string error;
  const auto pattern = lorelin::Pattern::Compile(expression, &error);
  Hold(pattern.has_value() == error.empty());
  if (!pattern) return;
  const auto match = pattern->Search(text, 0);
  const bool plain = expression.find_first_of("\\.[]()|*+?{}^$\n") == std::string_view::npos;
  if (plain) Hold((match ? match->groups.front().first : std::string_view::npos) == text.find(expression));
  if (!match) return;
  const auto [first, last] = match->groups.front();
  Hold(first <= last && last <= text.size());
  for (const auto& [begin, end] : match->groups) {
    if (begin == lorelin::Pattern::kNoGroup || end == lorelin::Pattern::kNoGroup) continue;
    Hold(begin <= end && end <= text.size());
  }
  if (plain) Hold(text.substr(first, last - first) == expression);
}

// What a form lets through comes back from the file.
void CheckKeeping(const lorelin::ReadingRule& rule) {
  if (!lorelin::RuleProblem(rule)) {
    Hold(lorelin::ParseReadingRules("# Kopf\n" + lorelin::ReadingRuleLine(rule) + "\n") ==
         lorelin::ReadingRules{rule});
  }
}

}  // namespace

// Rules leave a text whose runs fit, however they
// look, and those that are off leave it as it is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lorelin::fuzz::Input input(data, size);
  lorelin::ReadingRule rule;
  rule.on = true;
  rule.pattern = lorelin::DecodeText(input.Text());
  rule.replacement = lorelin::DecodeText(input.Text());
  const std::string file = lorelin::DecodeText(input.Text());
  const std::string text = lorelin::DecodeText(input.Rest());
  CheckKeeping(rule);
  CheckSearch(rule.pattern, text);
  lorelin::ReadingRules rules = lorelin::ParseReadingRules(file);
  rules.push_back(rule);
  lorelin::fuzz::CheckRuns(text, lorelin::RulesThatCount(rules).Apply(text));
  for (auto& each : rules) each.on = false;
  Hold(lorelin::RulesThatCount(rules).Apply(text).text == text);
  return 0;
}
